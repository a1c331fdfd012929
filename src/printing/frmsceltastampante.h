#pragma once
// The printer choice: lists the installed printers and makes the one picked
// the current printer until the program ends.
#include <QWidget>

struct Stato;
class QComboBox;
class QLabel;
class QPushButton;

class frmSceltaStampante : public QWidget
{
    Q_OBJECT
public:
    explicit frmSceltaStampante(Stato &stato, QWidget *parent = nullptr);

    QComboBox *Combo1 = nullptr;
    QLabel *Label1 = nullptr;   // the default printer
    QLabel *Label2 = nullptr;   // the printer chosen
    QLabel *lblCartella = nullptr; // with no printer: where the PDF files go
    QPushButton *Command2 = nullptr;

private:
    void ElencaStampanti();
    void MostraPredefinita();
    void Combo1_Click();

    Stato &stato_;
};
