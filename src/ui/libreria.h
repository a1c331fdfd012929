#pragma once
// Entry points of a library opened at run time: a library linked would make
// every start pay for loading it, even where it is never used.
#include <QLibrary>

// Risolutore(l)(f, "nome")(g, "altro").tutte(): loads l, resolves each name
// into its pointer, and says whether every one was found.
class Risolutore
{
public:
    explicit Risolutore(QLibrary &l) : l_(l), tutte_(l.load()) {}
    template <typename F> Risolutore &operator()(F &f, const char *nome)
    {
        f = tutte_ ? reinterpret_cast<F>(l_.resolve(nome)) : nullptr;
        tutte_ = tutte_ && f;
        return *this;
    }
    bool tutte() const { return tutte_; }

private:
    QLibrary &l_;
    bool tutte_;
};
