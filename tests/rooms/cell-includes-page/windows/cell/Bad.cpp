#include "windows/page/Thing.h"
