#pragma once
// The teacher's results screen: the exercises finished in this folder,
// newest first, under a chart of their right and wrong answers; the chosen
// one's twenty lines, to print; the whole file, to copy elsewhere. Its keys
// are one scanned row, so it works by switch as well as by mouse and keys.
#include "results/filerisultati.h"
#include "ui/resizecolore.h"
#include <QDateTime>
#include <QWidget>
#include <array>

class GraficoRisultati;
class QKeyEvent;
class QLabel;
class QTreeView;
class RigaOpzioni;
struct Stato;

class FrmRisultati : public QWidget
{
public:
    explicit FrmRisultati(Stato &stato, QWidget *parent = nullptr);
    ~FrmRisultati() override;

    static constexpr int kLarghezza = 1000;
    static constexpr int kAltezza = 752;
    enum Tasto { kPiuRecente, kMenoRecente, kStampa, kEsporta, kEsci };

    RigaOpzioni *tasti() const { return tasti_; }
    const LetturaRisultati &letti() const { return letti_; }
    int scelto() const { return scelto_; } // in the file's order; -1 for none
    void scegli(int indice);
    void comando(int i);

protected:
    void changeEvent(QEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;

private:
    void carica();
    bool tasto(int i, QKeyEvent *k);
    void sposta(int verso);
    void stampa();
    void esporta();

    Stato &stato_;
    QString percorso_;
    QDateTime letto_;         // when the file read was last changed
    qint64 dimensione_ = -1;  // and its size
    LetturaRisultati letti_;
    int scelto_ = -1;
    ResizeColore resize_;
    RigaOpzioni *tasti_ = nullptr;
    GraficoRisultati *grafico_ = nullptr;
    QTreeView *tabella_ = nullptr;
    class Modello;
    Modello *modello_ = nullptr;
    QLabel *lblStato_ = nullptr, *esercizio_ = nullptr;
    std::array<QLabel *, kRigheRisultato> righe_{};
};
