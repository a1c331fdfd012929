#include "content/catalogo.h"
void SceltaSimboli(qint16, TopicInstallato &, TitoliInizio &) {}
