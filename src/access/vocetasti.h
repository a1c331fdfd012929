#pragma once
// Auditory scanning: with the voice on, each key is named as the highlight
// reaches it, by a space step, a Tab or the automatic scan. Keys that the
// screen itself brings forward are not named: the screen is speaking then
// (the question, the outcome), and a key name would cut it short. Nor are
// the keys Qt passes the focus through when a screen disables the key that
// had it: the name waits until the event is over, and is dropped if the
// focus has moved on or the screen has spoken meanwhile.
#include <QObject>
#include <QPointer>

struct Stato;
class QWidget;

class VoceTasti : public QObject
{
public:
    explicit VoceTasti(Stato &stato);

    // What is said of w: its spoken name when the screen gave one, else its
    // caption or accessible name as words.
    static QString nome(const QWidget *w);

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void nomina();

    Stato &stato_;
    QPointer<QWidget> daNominare_;
    quint64 dettiPrima_ = 0;
};
