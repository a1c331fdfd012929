#include "app/versione.h"

namespace Versione {
QString nome() { return QStringLiteral("Composizione"); }
QString versione() { return QStringLiteral("1.0"); }
QString contatti()
{
    return QStringLiteral("Progetto Composizione\nesercizi sul sistema decimale e metrico\n"
                          "contatti: composizione@example.org");
}
}
