#include "access/regolepressioni.h"

RegolePressioni::Esito RegolePressioni::premuto(quintptr chiave, double t)
{
    const auto prima = contata_.constFind(chiave);
    // A clock gone back (midnight) starts afresh rather than refusing for ever.
    if (a_.ripetizione && prima != contata_.cend() && t >= *prima && t - *prima < *a_.ripetizione) {
        scartate_.insert(chiave);
        return Esito::Scarta;
    }
    scartate_.remove(chiave);
    if (a_.accettazione > 0.0) {
        attesa_ = chiave;
        scadenza_ = t + a_.accettazione;
        return Esito::Attendi;
    }
    contata_.insert(chiave, t);
    return Esito::Passa;
}

bool RegolePressioni::rilasciato(quintptr chiave)
{
    if (attesa_ == chiave) {
        attesa_.reset();
        return false;
    }
    return !scartate_.remove(chiave);
}

bool RegolePressioni::ripetuto(quintptr chiave) const
{
    return attesa_ != chiave && !scartate_.contains(chiave);
}

std::optional<double> RegolePressioni::scadenza() const
{
    return attesa_ ? std::optional<double>(scadenza_) : std::nullopt;
}

std::optional<quintptr> RegolePressioni::scaduta(double t)
{
    if (!attesa_ || t < scadenza_)
        return std::nullopt;
    const quintptr chiave = *attesa_;
    attesa_.reset();
    contata_.insert(chiave, t);
    return chiave;
}
