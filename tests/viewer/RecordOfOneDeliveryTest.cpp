#include "hosts/viewer/ViewerDocument.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace
{
TEST(ViewerDocument, ForgetsTheRecordWithItsDelivery)
{
    const TestHost services;
    const TempFolder temp;
    for (const char* name : {"one", "next"}) {
        DeliveryBuilder({.photos = 2, .images = false}).Write(temp.Path(name));
    }
    ViewerDocument document;
    CString problem;
    ASSERT_EQ(document.Open(temp.Path("one"), std::nullopt), "");
    ASSERT_TRUE(document.SaveRecord(temp.Path("r.xml"), problem)) << problem;
    ASSERT_EQ(document.RecordPath(), temp.Path("r.xml"));
    ASSERT_EQ(document.Open(temp.Path("next"), std::nullopt), "");
    EXPECT_EQ(document.RecordPath(), "") << "saving would go over the other delivery's";
}
} // namespace
