#include "platform/xml/Tree.h"
