#include "stato/stato.h"
#include "ui/voce.h"

void Stato::parla(const QString &testo, int dopoMs)
{
    if (accesso.voce && servizi.voce && !testo.isEmpty()) {
        servizi.voce->di(testo, accesso.velocita, dopoMs);
        ++detti;
    }
}
