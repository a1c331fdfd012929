#pragma once
// A row of option buttons used as push keys (a control array such as
// Option2(0..14)), with the scanning behaviour that every screen shares:
// space steps the focus, the screen's keys jump or choose, a mouse press
// chooses at once, and no button is ever left drawn as pressed.
#include <QColor>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>

class QKeyEvent;
class QPushButton;
class QWidget;

class RigaOpzioni : public QObject
{
    Q_OBJECT
public:
    enum class Flag {
        PerRiga,   // the step and key flags belong to the row: a held key acts once
        PerEvento  // every event starts with both flags clear: a held key repeats
    };
    struct Opzioni {
        QColor fuoco{255, 192, 128};
        QColor riposo{255, 224, 192};
        bool saltaDisabilitati = true;       // space skips disabled buttons
        Flag flag = Flag::PerRiga;
        bool mouseImpostaFlagTasto = false;  // a mouse press also sets the key flag
    };

    // Creates one QPushButton per caption as a child of `parent`, named
    // "<nome>(<index>)" (so "Option2(13)"), focusable, with the rest colour.
    RigaOpzioni(QWidget *parent, const QStringList &captions, const QString &nome, Opzioni opzioni);
    RigaOpzioni(QWidget *parent, const QStringList &captions, const QString &nome);

    QPushButton *bottone(int i) const;      // throws ErroreIntervallo outside 0..count-1
    int count() const;
    int indice(const QObject *bottone) const; // -1 when not in the row
    int indiceFuoco() const;                 // the button with the focus, or -1
    bool pronto(int i) const;                // enabled and not hidden: a key that can be chosen

    void passo();                            // what a space does: focus to the next button
    void scegli(int i);                      // emits scelto(i), as a mouse press does
    // What Enter does on button i, whatever the row's flags: the one switch of
    // automatic scanning must never be swallowed by a flag.
    void invio(int i);
    // The row a button (or a group of its buttons) belongs to, or null.
    static RigaOpzioni *di(const QObject *bottone);

    // Groups for scanning a long row with one switch: the group first, then
    // its keys, each group in the order given. The keys of each group move
    // into a frame of their own, which takes the focus while the group is
    // highlighted and hands the keyboard on to the keys. Nothing changes for
    // the eye or for keys and mouse until a group is highlighted.
    struct Gruppo {
        QString nome;       // what a screen reader says of the group
        QList<int> ordine;  // the keys, in the order the scan visits them
    };
    void setGruppi(const QList<Gruppo> &gruppi);
    int quantiGruppi() const;
    QWidget *gruppo(int g) const;                // the group's frame
    const QList<int> &ordine(int g) const;
    int gruppoDi(const QWidget *w) const;        // of a key or a frame; -1 when in none
    bool gruppoAttivo(int g) const;              // some key of it can be chosen
    void setColori(const QColor &fuoco, const QColor &riposo);
    const Opzioni &opzioni() const;
    bool flagPasso() const;
    bool flagTasto() const;

    // The screen's keys. Called on a key press on a button of the row, unless
    // the key flag is set, with that button's index. Returns true when the key
    // is accepted, which sets the key flag. When no handler is set, Enter and
    // Return choose the focused button and every other key is discarded.
    std::function<bool(int indice, QKeyEvent *evento)> tasto;

signals:
    void scelto(int indice);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void dipingi(QPushButton *b, const QColor &c);
    void passoDa(int da);
    void premuto(int i, QKeyEvent *k);
    void rilasciato(QPushButton *b, QKeyEvent *k);

    QList<QPushButton *> bottoni_;
    QList<Gruppo> gruppi_;
    QList<QWidget *> cornici_;
    QPointer<QPushButton> ultimo_;  // the key a group's frame hands the keyboard to
    Opzioni opzioni_;
    bool flagPasso_ = false;
    bool flagTasto_ = false;
};
