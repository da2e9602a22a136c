#include "work/ProductList.h"

const std::array<Product, 12>& ProductList()
{
    static constexpr std::array<Product, 12> products = {{
        {"QV-PhotoViewer", 2},
        {"QV-PhotoManager", 2},
        {"QV-PhotoChecker", 2},
        {"QV-DeliveryViewer", 2},
        {"QV-DeliveryManager", 2},
        {"QV-DeliveryChecker", 2},
        {"QV-DrawingViewer", 2},
        {"QV-DocumentViewer", 2},
        {"QV-SuiteLauncher", 2},
        {"QV-SuiteInspection", 3},
        {"QV-SuiteSubmission", 3},
        {"QV-SuiteStorage", 3},
    }};
    return products;
}
