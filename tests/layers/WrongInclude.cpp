// Sees Support only: this include must not be found.
#include "Model/FontRecord.h"
