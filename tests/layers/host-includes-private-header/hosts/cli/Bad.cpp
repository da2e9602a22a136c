#include "platform/Tree.h"
