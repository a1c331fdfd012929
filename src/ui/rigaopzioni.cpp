#include "ui/rigaopzioni.h"
