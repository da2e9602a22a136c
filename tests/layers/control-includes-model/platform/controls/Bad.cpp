#include "document/Record.h"
