#include "platform/text/CArray.h"

#include <string>

void ThrowOutsideArray(int index, int size)
{
    throw InvalidArgument("index " + std::to_string(index) + " outside an array of " +
                          std::to_string(size));
}
