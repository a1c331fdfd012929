#pragma once
// The printout screen of the exercise just done: its lines on screen, and the
// keys that print, save and load them.
#include "ui/resizecolore.h"
#include <QMainWindow>
#include <array>

struct Stato;
class QAction;
class QLabel;
class RigaOpzioni;

class FrmStampaEsercizioTre : public QMainWindow
{
    Q_OBJECT
public:
    explicit FrmStampaEsercizioTre(Stato &stato, QWidget *parent = nullptr);

    // The printer font found when the screen opened ("Courier New",
    // "Courier" or empty).
    const QString &caratterePagina() const { return CaratterePagina_; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void costruisci();
    void carica();
    void Command1_Click(int indice);
    void mostraRiga(int i, const QString &testo);
    void fontRighe(const QString &nome);

    Stato &stato_;
    ResizeColore resize_;
    std::array<QLabel *, 31> LblOp_{}; // index 0 unused
    RigaOpzioni *Command1_ = nullptr;
    QAction *mnuScegli_ = nullptr;
    QString CaratterePagina_;
    QString NomeFileEsercizio_;
};
