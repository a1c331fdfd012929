#pragma once
// Where the user wants a file written, asked in a dialog of the system's.
#include <QString>

class ISceltaFile
{
public:
    virtual ~ISceltaFile() = default;
    // The path chosen for a new file, `proposto` offered first (a name, or a
    // path); empty when the user gives up.
    virtual QString salvaCome(const QString &titolo, const QString &proposto) = 0;
};

class QtSceltaFile final : public ISceltaFile
{
public:
    QString salvaCome(const QString &titolo, const QString &proposto) override;
};
