#include "panels/Panel.h"
