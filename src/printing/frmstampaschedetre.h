#pragma once
// Worksheets for pupils and teachers: kind, symbol order and number of lines
// are chosen, the sheet is previewed and printed.
#include "ui/resizecolore.h"
#include <QMainWindow>
#include <array>

struct Stato;
class QAction;
class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class RigaOpzioni;

class FrmStampaSchedeTre : public QMainWindow
{
    Q_OBJECT
public:
    explicit FrmStampaSchedeTre(Stato &stato, QWidget *parent = nullptr);

    qint16 tipoScheda() const { return TipoScheda_; }
    // The footer text of the last print: kept, never shown or printed.
    const QString &testoPiede() const { return TestoPiede_; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void costruisci();
    void costruisciScelte(QWidget *form);
    void costruisciScheda(QWidget *form);
    void costruisciAnteprima(QWidget *form);
    void apri();

    void Option1_Click(int i);
    void Option2_Click(int i);
    void Opt1_Click(int i);
    void visualizza(qint16 tipo);
    void stampa(qint16 tipo);
    void CmdRicomincia_Click();

    void mostraStampa(QPushButton *mostrato, QPushButton *nascosto);
    void nascondiStampa();
    void svuotaAnteprima(const QString &testo);
    void riga(int k, const QString &testo);
    void strisce(const std::array<QLabel *, 3> &s, int rossa);

    Stato &stato_;
    ResizeColore resize_;
    RigaOpzioni *Option1_ = nullptr;
    RigaOpzioni *Option2_ = nullptr;
    std::array<QLabel *, 3> Label3_{};
    std::array<QLabel *, 3> Label4_{};
    std::array<QRadioButton *, 3> Opt1_{};
    std::array<QLabel *, 31> LblOp_{}; // index 0 unused
    QFrame *Frame7_ = nullptr;
    QFrame *Frame1_ = nullptr;
    QLabel *Label1_ = nullptr;
    QLabel *Label2_ = nullptr;
    QPushButton *CmdVisualizzaSchedaAlunni_ = nullptr;
    QPushButton *CmdStampaSchedaAlunni_ = nullptr;
    QPushButton *CmdVisualizzaSchedaDocenti_ = nullptr;
    QPushButton *CmdStampaSchedaDocenti_ = nullptr;
    QPushButton *CmdRicomincia_ = nullptr;
    QPushButton *cmdEsci_ = nullptr;
    QAction *mnuStampante_ = nullptr;
    qint16 TipoScheda_ = 0;
    QString TestoPiede_;
};
