#pragma once
// Loads each screen on first use with the shared state, shows it, and unloads
// it on request. When no screen is left on view the program is over.
#include "ui/schermi.h"
#include <QMargins>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

struct Stato;

class GestoreSchermi : public QObject, public IScreens
{
    Q_OBJECT
public:
    // Builds the screen `s` on `stato`; nullptr when the program has no such screen.
    using Fabbrica = std::function<QWidget *(Schermo s, Stato &stato, QWidget *proprietario)>;

    explicit GestoreSchermi(Stato &stato, QObject *parent = nullptr);
    ~GestoreSchermi() override;

    void apri(Schermo s) override;
    void chiudi(Schermo s) override;
    bool caricato(Schermo s) const;

    QWidget *schermo(Schermo s) const;
    void setFabbrica(Fabbrica f);
    static QWidget *creaSchermo(Schermo s, Stato &stato, QWidget *proprietario);

signals:
    // No loaded screen is visible any more.
    void tuttiChiusi();

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void controllaFine();
    QMargins cornice() const;

    Stato &stato_;
    Fabbrica fabbrica_;
    std::map<Schermo, QPointer<QWidget>> schermi_;
};
