#include "windows/page/Panel.h"
