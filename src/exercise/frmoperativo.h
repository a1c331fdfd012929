#pragma once
// The exercise screen: twenty items, each shown as a find-the-number or a
// find-the-symbol question, answered on a keypad or a symbol pad by mouse,
// keyboard or one switch, verified at once, helped, timed and written as one
// fixed-pitch line into the exercise record.
#include "exercise/risposta.h"
#include "ui/resizecolore.h"
#include <QMainWindow>

class QColor;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QWidget;
class RigaOpzioni;
struct Stato;

class frmOperativo : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmOperativo(Stato &stato, QWidget *parent = nullptr);
    ~frmOperativo() override;

    // The design size of the page under the menu bar, in pixels.
    static constexpr int kLarghezza = 1000;
    static constexpr int kAltezza = 680;

    // The screen's operations. Each runs to its end or stops at a range or
    // overflow error; callers from events wrap them in confine().
    void NuovoEsercizio();
    void MostraEsercizio();
    void Verifica();
    void AggiornaTempi();
    void ControllaFine();
    void MostraCorrezione();
    void Riprova();
    void ChiudiRiquadri(QWidget *tranne = nullptr); // all five, or all but one
    void MostraBarre();
    void NascondiBarre();
    void Ricomincia();

    // The key rows: Option2 (keypad), Option1 (symbol pad), Option3 (help),
    // optOK (intervention), optAvviso (end of the exercise).
    RigaOpzioni *tastierino() const { return option2_; }
    RigaOpzioni *simboli() const { return option1_; }
    RigaOpzioni *aiuto() const { return option3_; }
    RigaOpzioni *intervento() const { return optOK_; }
    RigaOpzioni *avviso() const { return optAvviso_; }

    const Risposta &risposta() const { return risposta_; }
    const QString &rispostaAttesa() const { return rispostaAttesa_; }
    qint16 risposteEsatte() const { return risposteEsatte_; }
    qint16 risposteErrate() const { return risposteErrate_; }
    qint16 tentativi() const { return tentativi_; }
    int tempoTotale() const { return tempoTotale_; }

protected:
    void resizeEvent(QResizeEvent *e) override;
    void closeEvent(QCloseEvent *e) override;

private:
    // Construction (frmoperativo_costruzione.cpp)
    void costruisci();
    void costruisciIntestazione(QWidget *pagina);
    void costruisciRiquadriEsercizio(QWidget *pagina);
    void costruisciTastierini(QWidget *pagina);
    void costruisciRiquadriAiuto(QWidget *pagina);
    void costruisciMenu();
    void carica();

    // The two ways of showing an item.
    void mostraNumero();
    void mostraSimbolo();
    bool voceNumero() const;
    bool voceSimbolo() const;
    void iniziaRiga(const QString &rientro, const QString &dato);
    QString &rigaCorrente();
    void calcolaSpazi();

    // Keys (frmoperativo_tasti.cpp)
    void azioneTastierino(int i);
    void azioneSimboli(int i);
    void azioneAiuto(int i);
    void azioneAvviso(int i);
    bool tastoTastierino(int i, QKeyEvent *k);
    bool tastoSimboli(int i, QKeyEvent *k);
    bool tastoAiuto(int i, QKeyEvent *k);
    void cifra(QChar c, int limite);
    void mostraRisposta();
    void inizioTastierino();
    void inizioSimboli();

    // Frames, focus and leaving (frmoperativo.cpp)
    void portaAvanti(QWidget *riquadro);
    void inCima(QWidget *w, const QList<QWidget *> &sovrapposti);
    QList<QWidget *> riquadri() const;
    void coloreEsito(const QColor &c);
    void fuoco(RigaOpzioni *riga, int i);
    void esci();
    void apriStampa();
    void diFine();

    void scrivi(QLabel *l, const QString &testo);

    Stato &stato_;
    ResizeColore resize_;
    bool uscita_ = false;

    // Screen state
    Risposta risposta_;            // RispostaData and the comma flag
    QString rispostaAttesa_;
    QString testoTempoParziale_;
    QString testoTempoTotale_;
    qint16 risposteEsatte_ = 0;
    qint16 risposteErrate_ = 0;
    qint16 tentativi_ = 0;
    // The counters as this run found them, and whether its end was told.
    qint16 esatteInizio_ = 0, errateInizio_ = 0;
    bool fineDetta_ = false;
    int tempoParziale_ = 0;
    int tempoTotale_ = 0;
    float inizioTempo_ = 0;
    float fineTempo_ = 0;
    QString spaziQuesito_, spaziErrata_, spaziNumero_, spaziSimboli_;

    // Controls
    QLabel *label1_ = nullptr, *label2_ = nullptr, *label7_ = nullptr;
    QLabel *lblEsito_ = nullptr, *lblOperazione_ = nullptr;
    QLabel *lblRisEsatte_ = nullptr, *lblRisErrate_ = nullptr;
    QLabel *lblTempoParziale_ = nullptr, *lblTempoTotale_ = nullptr;

    QGroupBox *fraNumero_ = nullptr, *fraSimbolo_ = nullptr;
    QLabel *lblNumero1_ = nullptr, *label11_ = nullptr, *lblUguale_ = nullptr;
    QLabel *lblRisultato_ = nullptr, *lblCorrezione_ = nullptr;
    QLabel *lblNumero1S_ = nullptr, *label11S_ = nullptr, *lblUgualeS_ = nullptr;
    QLabel *lblRisultatoS_ = nullptr, *lblCorrezioneS_ = nullptr, *label15_ = nullptr;
    QWidget *line1_ = nullptr, *line2_ = nullptr, *lineA1_ = nullptr, *lineA2_ = nullptr;

    QGroupBox *fraTastierino_ = nullptr, *fraSimboli_ = nullptr;
    QGroupBox *fraAiuto_ = nullptr, *fraIntervento_ = nullptr, *fraAvviso_ = nullptr;
    QLabel *lblIntervento_ = nullptr, *label4_ = nullptr;

    RigaOpzioni *option2_ = nullptr, *option1_ = nullptr, *option3_ = nullptr;
    RigaOpzioni *optOK_ = nullptr, *optAvviso_ = nullptr;
};
