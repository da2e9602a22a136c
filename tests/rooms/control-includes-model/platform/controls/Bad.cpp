#include "photos/Record.h"
