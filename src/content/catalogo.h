#pragma once
#include "content/topic.h"

// Installs topic number `livello` (1..12) into `topic` and writes its titles.
// Any other level leaves topic and labels alone, but the menu caption is
// still rewritten from Label6(2).
void SceltaSimboli(qint16 livello, TopicInstallato &topic, TitoliInizio &titoli);

// The line of unit names of topic `livello` (its Label6(2) caption, blanks
// as they stand); empty for a level with no topic.
QString NomiArgomento(qint16 livello);
