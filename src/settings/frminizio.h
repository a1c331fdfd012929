#pragma once
// The first screen: the pupil (or the teacher) picks the kind of exercise,
// the order of the symbols and then "Vai", on three rows of large keys that
// work by mouse, keys or a single switch. Level and digit count are stepped
// from the header and written to the settings file at once.
#include "ui/resizecolore.h"
#include "settings/tendine.h"
#include <QMainWindow>

class QAction;
class QFrame;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QMenu;
class QTimer;
class RigaOpzioni;
struct Stato;

class FrmInizio : public QMainWindow
{
    Q_OBJECT
public:
    explicit FrmInizio(Stato &stato, QWidget *parent = nullptr);

    // The design size of the page under the menu bar, in pixels.
    static constexpr int kLarghezza = 1000;
    static constexpr int kAltezza = 680;

    RigaOpzioni *riga(int n) const; // 1, 2, 3: kind, order, action
    Tendine &tendine() { return tendine_; }
    void tickTendine();

    // The three choice operations, by index 0..2, as the mouse makes them.
    void sceltaTipo(int i);
    void sceltaOrdine(int i);
    void azione(int i);
    void passoLivello();
    void passoCifre();

protected:
    void changeEvent(QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void costruisci();
    void costruisciMenu();
    void avvio();
    void mostraTitoli();
    void mostraCifre();
    void apriArgomenti();
    void spuntaArgomento(); // checks the installed topic in the menu, once made
    // Installs topic `livello` as the stepper does, wherever it stands.
    void impostaLivello(qint16 livello);
    void posaTendine();
    void reimposta();
    void esci();
    bool tastoRiga(int riga, int indice, QKeyEvent *k);

    Stato &stato_;
    ResizeColore resize_;
    Tendine tendine_;
    QWidget *pagina_ = nullptr;
    QGroupBox *frame_[4] = {};   // Frame1..Frame3 (index 0 unused)
    RigaOpzioni *righe_[4] = {}; // Option1..Option3 (index 0 unused)
    QLabel *label1_ = nullptr, *label2_ = nullptr, *label3_ = nullptr;
    QLabel *label6_[3] = {};
    QLabel *label7_ = nullptr, *label8_ = nullptr, *lblCifre_ = nullptr;
    QLabel *label4_[4] = {};
    QFrame *picture1_ = nullptr, *picture2_ = nullptr;
    QTimer *timerTendine_ = nullptr;
    QAction *mnuSchede_ = nullptr;
    QAction *mnuArgomento_ = nullptr;
    QMenu *argomenti_ = nullptr; // made when first opened
    QObject *doppioClic_ = nullptr; // the label whose double click is under way
    bool uscita_ = false;
};
