#pragma once

#include <array>

/// A sibling product whose installation shows where there is room for work files.
struct Product
{
    /// Its key in the registry.
    const char* key;
    /// How many levels its program folder lies below the folder that all products share.
    int levels;
};

/// All sibling products, the most telling first.
const std::array<Product, 12>& ProductList();
