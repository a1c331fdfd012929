#include "settings/tendine.h"

#include <cmath>

void Tendine::avvia(int larghezzaTwips)
{
    larghezza1_ = larghezzaTwips / 2;
    larghezza2_ = larghezzaTwips / 2;
    attiva_ = true;
}

bool Tendine::tick()
{
    if (!attiva_)
        return true;
    if (larghezza1_ - kPasso < 0)
        return false;
    larghezza1_ -= kPasso;
    if (larghezza2_ - kPasso < 0)
        return false;
    larghezza2_ -= kPasso;
    if (larghezza1_ < kChiusa)
        attiva_ = false;
    return true;
}

int Tendine::pixel(int twips, double scala)
{
    return int(std::lround(twips * scala / kTwipsPerPixel));
}
