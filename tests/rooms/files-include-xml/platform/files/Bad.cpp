#include "platform/xml/Thing.h"
