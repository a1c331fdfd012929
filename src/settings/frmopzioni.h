#pragma once
// The teacher's panel: page, text and scanning colours and a few switches,
// shown at once in a preview and stored in the settings file on request.
// Every click works directly on the program's settings.
#include "ui/resizecolore.h"
#include <QWidget>

class QAbstractButton;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QPushButton;
class QRadioButton;
class RigaOpzioni;
struct Stato;

class FrmOpzioni : public QWidget
{
    Q_OBJECT
public:
    explicit FrmOpzioni(Stato &stato, QWidget *parent = nullptr);

    static constexpr int kLarghezza = 1000;
    static constexpr int kAltezza = 704;

    RigaOpzioni *comandi() const { return option5_; }
    // The command row's actions: 0 defaults, 1 store, 2 leave.
    void comando(int i);
    // Selects the stored colour buttons and the "BEEP" switch.
    void applicaImpostazioni();

protected:
    void changeEvent(QEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;

private:
    QGroupBox *riquadro(QWidget *parent, const QString &nome, const QString &titolo, const QRect &g);
    QList<QRadioButton *> elenco(QGroupBox *frame, const QString &nome, const QStringList &captions,
                                 int colonne, int altezzaRiga);
    void attiva();
    void dipingiAnteprima();
    void dipingiComandi();
    bool tasto(int indice, QKeyEvent *k);

    void clickSfondo(int i);
    void clickCaratteri(int i);
    void clickScansione(int i);
    void clickMaiuscolo(int i);
    void clickArgomento(int i);

    Stato &stato_;
    ResizeColore resize_;
    RigaOpzioni *option5_ = nullptr;
    QGroupBox *frame1_ = nullptr;
    QPushButton *option4_ = nullptr, *option2_ = nullptr;
    QLabel *label4_ = nullptr, *label5_ = nullptr;
    QList<QRadioButton *> option1_, option27_, option17_, option3_;

    // What the preview shows; painted by dipingiAnteprima.
    QColor sfondoFrame_, testoAnteprima_, testoLabel4_, sfondoOption4_, sfondoOption2_;
};
