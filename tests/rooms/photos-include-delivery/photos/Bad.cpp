#include "delivery/Thing.h"
