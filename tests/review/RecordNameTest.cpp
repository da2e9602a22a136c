#include "review/RecordName.h"

#include <gtest/gtest.h>

namespace
{
TEST(RecordName, IsOneThatAnyFileSystemTakes)
{
    CString longTitle;
    for (int i = 0; i < 200; ++i) longTitle += "舗";
    CString sixty = longTitle.substr(0, 180);
    const std::pair<CString, CString> cases[] = {
        {"道路改良工事", "/文書/道路改良工事 検査状況.xml"},
        {"", "/文書/検査状況.xml"},
        {" ../../etc/passwd ", "/文書/etcpasswd 検査状況.xml"},
        {"A/B:C*\"<>|?\\\n", "/文書/ABC 検査状況.xml"},
        {"...", "/文書/検査状況.xml"},
        {longTitle, "/文書/" + sixty + " 検査状況.xml"}};
    for (const auto& [title, path] : cases) EXPECT_EQ(ProposedRecordPath("/文書", title), path);
}
} // namespace
