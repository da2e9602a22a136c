#include "work/Record.h"
