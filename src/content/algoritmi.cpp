#include "content/algoritmi.h"
void Generatore::genera(qint16, qint16, const TopicInstallato &, Item &, qint16 &) const {}
