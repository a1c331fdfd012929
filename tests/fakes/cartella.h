#pragma once
// The program keeps its files in the current folder: a test object holding
// one of these works in a scratch folder of its own, gone when it ends.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A whole file's bytes (empty when it cannot be read), and a file written whole.
inline QByteArray leggiFile(const QString &nome)
{
    QFile f(nome);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
inline bool scriviFile(const QString &nome, const QByteArray &dati)
{
    QFile f(nome);
    return f.open(QIODevice::WriteOnly) && f.write(dati) == dati.size();
}

class CartellaDiProva
{
public:
    CartellaDiProva()
    {
        if (dir_.isValid())
            QDir::setCurrent(dir_.path());
    }
    ~CartellaDiProva() { QDir::setCurrent(prima_); }

    bool valida() const { return dir_.isValid(); }

private:
    QString prima_ = QDir::currentPath();
    QTemporaryDir dir_;
};
