#include "hosts/cli/Host.h"
