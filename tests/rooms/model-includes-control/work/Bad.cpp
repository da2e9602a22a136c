#include "platform/controls/Font.h"
