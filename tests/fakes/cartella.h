#pragma once
// The program keeps its files in the current folder: a test object holding
// one of these works in a scratch folder of its own, gone when it ends.
#include <QDir>
#include <QTemporaryDir>

class CartellaDiProva
{
public:
    CartellaDiProva()
    {
        if (dir_.isValid())
            QDir::setCurrent(dir_.path());
    }
    ~CartellaDiProva() { QDir::setCurrent(prima_); }
    CartellaDiProva(const CartellaDiProva &) = delete;
    CartellaDiProva &operator=(const CartellaDiProva &) = delete;

    bool valida() const { return dir_.isValid(); }
    QString percorso() const { return dir_.path(); }

private:
    QString prima_ = QDir::currentPath();
    QTemporaryDir dir_;
};
