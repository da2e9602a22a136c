#include "support/OpenedSample.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include <gtest/gtest.h>

#include <sstream>

namespace
{
CString Repeated(const CString& text, int times)
{
    CString all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

/// A READITEM.XML from rows as "title count operation [flags]": the flag P marks the photographs'
/// own items, M the delivery's, B a repeating block, u and l the grades 不要 and 連携.
CString ItemFile(const CString& rows)
{
    CString xml = "<information><国交省-20>";
    std::istringstream lines(rows);
    for (CString line; std::getline(lines, line, ',');) {
        std::istringstream words(line);
        CString title, count, operation, flags;
        words >> title >> count >> operation >> flags;
        const auto has = [&flags](char flag) { return flags.find(flag) != CString::npos; };
        xml += "<管理項目><タイトル>" + title + "</タイトル><必要度>" +
               (has('u')   ? "不要"
                : has('l') ? "連携"
                           : "必須") +
               "</必要度><表示>MainList</表示><データ数>" + count + "</データ数><操作>" +
               operation + "</操作><ブロック複数>" + (has('B') ? "○" : "×") +
               "</ブロック複数><読込種別>" +
               (has('P')   ? "PhotoItem"
                : has('M') ? "MngItem"
                           : "NotItem") +
               "</読込種別></管理項目>";
    }
    return xml + "</国交省-20></information>";
}

CString Shown(const ToviItemArray& items, const ToviItemDef& def)
{
    CString text;
    for (const ToviItem& item : items) {
        text += (text.empty() ? "" : " ") + def.GetTitleFromIndex(item.GetDefIndex()) + "=" +
                item.GetValue();
    }
    return text;
}

/// What a PHOTO.XML of these elements becomes under these definitions: the delivery's items, and
/// behind a bar those of each photograph. "null" when no document comes back, "throws" for
/// InvalidArgument.
CString Walked(const CString& rows, const CString& elements)
{
    TestHost services;
    const TempFolder temp;
    temp.Write("READITEM.XML", ItemFile(rows));
    temp.Write("PHOTO/PHOTO.XML", "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">\n<photodata>" +
                                      elements + "</photodata>");
    InstallHostServices({&services.user, &services.profile, "Tovi", temp.Path("program")});
    ToviEnouDataFactory factory;
    std::unique_ptr<ToviData> document;
    try {
        document.reset(
            factory.Create(nullptr, temp.Path("PHOTO").c_str(), PhotoXMLMlit, nullptr, nullptr));
    } catch (const InvalidArgument&) {
        return "throws";
    }
    if (!document) return "null";
    CString text = Shown(*document->GetMngItemPhoto(), *document->GetItemDef());
    for (const ToviPhoto* photo : *document->GetPhotoDataArray()) {
        text += "|" + Shown(photo->GetItems(), *document->GetItemDef());
    }
    return text;
}

struct WalkCase
{
    const char* what;
    CString rows;
    CString elements;
    CString walked;
};

void Check(const std::vector<WalkCase>& cases)
{
    for (const WalkCase& c : cases) EXPECT_EQ(Walked(c.rows, c.elements), c.walked) << c.what;
}

const CString frame = "g 1 Child u,a 1 Next M,b 0/1 Next M,c 1 Parent M";

TEST(TopLevelWalk, FollowsItsRules)
{
    Check({
        {"the first element is searched from the root down", frame,
         "<x><g><a>1</a><b>2</b><c>3</c></g></x>", "a=1 b=2 c=3"},
        {"without the first element the load fails", frame, "<x/>", "null"},
        {"an optional element that is missing takes the next one with it", frame,
         "<g><a>1</a><c>3</c></g>", "a=1 b= c=3"},
        {"and does so where another follows", "g 1 Child u,a 0/1 Next,b 1 Next,c 1 Parent",
         "<g><b>2</b><c>3</c></g>", "a= b= c=3"},
        {"a mandatory one does too", "g 1 Child u,a 1 Next,b 1 Next,c 1 Parent",
         "<g><b>2</b><c>3</c></g>", "a= b= c=3"},
        {"an element that must not be absent", "g 1 Child u,a 0 Next,c 1 Parent", "<g><c>3</c></g>",
         "null"},
        {"a mandatory block that is missing doesn't lead upwards",
         "g 1 Child u,h 1 Child u,a 1 Parent,c 1 Parent", "<g><c>3</c></g>", "a= c=3"},
        {"an optional block that is missing is skipped with what is in it",
         "g 1 Child u,h 0/1 Child u,i 0/1 Child u,a 1 Parent,b 1 Parent,c 1 Parent",
         "<g><c>3</c></g>", "c=3"},
        {"a run is stored whole", "g 1 Child u,a 0+ Parent,z 0+ Next",
         "<g><a>1</a><a>2</a></g><z>9</z><z>8</z>", "a=1 a=2 z=9 z=8"},
        {"what is unneeded is not kept", "g 1 Child u,a 1 Next u,c 1 Parent",
         "<g><a>1</a><c>3</c></g>", "c=3"},
        {"a linked element that is missing moves on as well",
         "g 1 Child u,a 0/1 Next l,b 0/1 Next,c 1 Parent", "<g><b>2</b><c>3</c></g>", "a= b= c=3"},
        {"an optional block without its end", "g 1 Child u,h 0/1 Child u,a 1 Next", "<g><c/></g>",
         "throws"},
    });
}

const CString photo = "p 1+ Child Pu,a 1 Next,b 0/1 Next,c 0+ Parent";

TEST(PhotoBlockWalk, FollowsItsRules)
{
    Check({
        {"each photograph is read from its first element", photo + ",z 0+ Parent M",
         "<p><a>1</a><b>2</b></p><p><a>3</a><c>4</c><c>5</c></p><z>9</z>",
         "z=9|a=1 b=2 c=|a=3 b= c=4 c=5"},
        {"the file ends behind the last photograph", photo + ",z 0+ Parent M", "<p><a>1</a></p>",
         "z=|a=1 b= c="},
        {"the list ends behind the photographs", photo, "<p><a>1</a></p>", "|a=1 b= c="},
        {"a linked element that is missing stays",
         "p 1+ Child Pu,h 1 Child u,a 0/1 Next l,c 0/1 Next l,b 0/1 Parent",
         "<p><h><b>1</b></h></p>", "|a= c= b=1"},
        {"a mandatory block that is missing", "p 1+ Child Pu,h 1 Child u,a 0/1 Parent,c 1 Parent",
         "<p><c>1</c></p><p><h><a>2</a></h><c>3</c></p>", "|a= c=1|a=2 c=3"},
        {"an optional block that is missing", "p 1+ Child Pu,h 0/1 Child u,a 1 Parent,c 1 Parent",
         "<p><c>1</c></p>", "|c=1"},
        {"an element that must not be absent loses the photograph, not those before",
         "p 1+ Child Pu,b 1 Next,a 0 Next,c 1 Parent",
         "<p><b>1</b><a>2</a><c>3</c></p><p><b>4</b><x/><a>5</a><c>6</c></p>",
         "b= a=5 c=6|b=1 a=2 c=3"},
        {"elements between the photographs are passed, those behind are not",
         photo + ",y 0/1 Next M,z 0+ Parent M",
         "<x/><p><a>1</a></p><x/><z>0</z><p><a>2</a></p><y>8</y><z>9</z>",
         "y=8 z=9|a=1 b= c=|a=2 b= c="},
        {"photographs stand in front of what should stand in front of them",
         "g 1 Child u,a 1 Parent M," + photo + ",z 0+ Parent M",
         "<p><a>1</a></p><p/><g><a>2</a></g><z>9</z>", "a=2 z=9|a=1 b= c=|a= b= c="},
        {"or in another element", "g 1 Child u,a 1 Parent M," + photo,
         "<g><a>2</a></g><x><p><a>1</a></p><p><b>3</b></p></x>", "a=2|a=1 b= c=|a= b=3 c="},
        {"or without what should stand in front of them",
         "g 1 Child u,a 1 Parent M," + photo + ",z 0+ Parent M", "<p><a>1</a></p><z>9</z>",
         "z=9|a=1 b= c="},
        {"a photograph without anything in it", "p 1+ Child Pu,h 1 Child u,a 0/1 Parent,c 1 Parent",
         "<p><h><a>1</a></h><c>2</c></p><p/><p><c>3</c></p>", "|a=1 c=2|a= c=|a= c=3"},
        {"a block without anything in it",
         "p 1+ Child Pu,h 0/1 Child u,a 1 Next,j 0/1 Child u,b 1 Parent,k 1 Child u,c 0/1 Parent,d "
         "1 "
         "Parent,e 1 Parent",
         "<p><h/><e>1</e></p><p><e>2</e></p>", "|a= c= d= e=1|e=2"},
        {"a block at the top without anything in it", frame + ",z 0+ Parent M",
         "<g>text</g><z>9</z>", "a= b= c= z=9"},
        {"levels left open are climbed back", "p 1+ Child Pu,h 1 Child u,a 1 Next",
         "<p><h><a>1</a></h></p><p><h><a>2</a></h></p>", "|a=1|a=2"},
        {"more ends than beginnings", "g 1 Child u,p 1+ Child Pu,a 1 Parent,b 1 Parent",
         "<g><p><a>1</a></p></g>", "throws"},
        {"a pass that stands still is the last one", "p 1+ Next Pu", "<p/>", "|"},
    });
}

const CString block = "p 1+ Child Pu,q 0+ Child uB,a 1 Next,b 0/1 Next,c 0+ Parent,d 0/1 Parent";

TEST(RepeatingBlockWalk, FollowsItsRules)
{
    Check({
        {"every occurrence gives its items", block,
         "<p><q><a>1</a></q><q><a>2</a><b>3</b><c>4</c><c>5</c></q><d>6</d></p>",
         "|a=1 b= c= a=2 b=3 c=4 c=5 d=6"},
        {"the block is missing", block, "<p><d>6</d></p>", "|d=6"},
        {"the block is the last element there", block, "<p><q><a>1</a></q></p><p><d>2</d></p>",
         "|a=1 b= c= d=|d=2"},
        {"an occurrence without anything in it", block,
         "<p><q/><q><a>1</a></q><q/><d>6</d></p><p><q/></p>",
         "|a= b= c= a=1 b= c= a= b= c= d=6|a= b= c= d="},
        {"an element that must not be absent loses the block",
         "p 1+ Child Pu,q 0+ Child uB,b 1 Next,a 0 Next,c 1 Parent,d 0/1 Parent",
         "<p><q><b>1</b><x/><a>2</a><c>3</c></q><d>4</d></p>", "|b=1 b= a=2 c=3 d=4"},
        {"no definition follows it", "p 1+ Child Pu,q 0+ Child uB,a 1 Parent",
         "<p><q><a>1</a></q></p>", "throws"},
        {"a mandatory one that ends leads no higher than its photograph",
         "p 1+ Child Pu,q 1+ Child uB,a 1 Parent,b 0/1 Next,c 1 Parent",
         "<p><q><a>1</a></q><c>2</c></p><c>9</c>", "|a=1 a= b= c=2"},
        {"it never ends", "p 1+ Child Pu,q 0+ Child uB,a 1 Next", "<p><q><a>1</a></q></p>",
         "throws"},
        {"among the delivery's own items", "q 0+ Child uB,a 1 Parent M,z 0/1 Next M",
         "<q><a>1</a></q><q><a>2</a></q><z>3</z>", "a=1 a=2 z=3"},
    });
}

const CString place = "p 1+ Child Pu,h 1 Child u,a 1 Next,b 0/1 Parent,q 0+ Child uB,e 1 Next,"
                      "f 0/1 Parent,k 0/1 Child u,c 0/1 Parent,d 0/1 Parent";

TEST(UnreadValues, BecomeItemsAtTheirPlace)
{
    Check({
        {"in the place of an absent one", place, "<p><h><a>1</a><d>4</d></h></p>", "|a=1 b= d=4"},
        {"behind what was found, which stays", place,
         "<p><h><a>1</a><b/><b>2</b><a>3</a></h><d>4</d><d>5</d></p>", "|a=1 a=3 b= b=2 d=4 d=5"},
        {"in a block that is missing", place, "<p><h><a>1</a></h><d>4</d><c>3</c></p>",
         "|a=1 b= c=3 d=4"},
        {"blocks in another order", place,
         "<p><k><c>3</c></k><q><e>5</e></q><h><a>1</a><b>2</b></h></p>", "|a=1 b=2 e=5 c=3 d="},
        {"in the occurrence in which they stand", place,
         "<p><h><a>1</a></h><q><e>1</e></q><q><e>2</e><x/><f>3</f></q><d>4</d></p>",
         "|a=1 b= e=1 f= e=2 f=3 d=4"},
        {"occurrences that were not reached", place,
         "<p><h><a>1</a></h><q><e>1</e><f>2</f></q><x/><q><e>3</e><f>4</f></q></p>",
         "|a=1 b= e=1 e=3 f=2 f=4 d="},
        {"deep inside", place, "<p><h><a>1<x><y><b>2</b></y></x></a></h></p>", "|a=1 b=2 d="},
        {"what has no value, is unneeded or unknown is left", place,
         "<p><h><a>1</a><c/><h>2</h><x>3</x></h></p>", "|a=1 b= d="},
        {"a photograph in another", place, "<p><h><a>1</a></h><p><d>2</d></p></p>", "|a=1 b= d=2"},
    });
}

TEST(Walk, ReadsOneHugeValueAndOneHugeRun)
{
    const CString strays = Repeated("<b>1</b><x/><a>1</a>", 50000);
    EXPECT_EQ(Walked("p 1+ Child Pu,a 1 Next,b 1 Parent", "<p>" + strays + "</p>").size(),
              100000 * 4u);
    const CString value(std::size_t{20} << 20, 'v');
    EXPECT_EQ(Walked("p 1+ Child Pu,a 0+ Parent", "<p><a>" + value + "</a></p>"), "|a=" + value);
    const CString run = Repeated("<a>1</a>", 100000);
    EXPECT_EQ(Walked("p 1+ Child Pu,a 0+ Parent", "<p>" + run + "</p>").size(), 100000 * 4u);
}
} // namespace
