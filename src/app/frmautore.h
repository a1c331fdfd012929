#pragma once
// The about box: the program's name, version and contact lines, and a key
// that closes it.
#include <QDialog>

class QPushButton;

class FrmAutore : public QDialog
{
    Q_OBJECT
public:
    explicit FrmAutore(QWidget *parent = nullptr);
    QPushButton *chiudi() const { return chiudi_; }

private:
    QPushButton *chiudi_ = nullptr;
};
