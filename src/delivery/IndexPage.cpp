#include "delivery/IndexPage.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "kinds/IndexStylesheets.h"
#include "loading/IndexCopy.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/MibFile.h"
#include "platform/xml/XslTransform.h"

namespace
{
/// A page takes up to a hundred times the bytes in memory while it is made, and some seconds for
/// this many.
constexpr std::size_t largestSource = std::size_t{4} << 20;

CString WhyNotWritten(const CString& index)
{
    if (IndexCopyFolder().empty()) {
        return index + " の写しを作る作業フォルダの場所がありません。ホームフォルダを確かめてくださ"
                       "い。";
    }
    return index + " の写しを作業フォルダ " + IndexCopyFolder() +
           " に作れません。書き込みの権限と空き容量を確かめてください。";
}

std::optional<std::string> Transform(const CString& copy, const CString& stylesheet,
                                     const CString& note)
{
    const auto xml = MibReadFile(copy, largestSource);
    const auto sheet = MibReadFile(stylesheet, largestSource);
    return xml && sheet ? TransformXml(*xml, *sheet, note) : std::nullopt;
}
} // namespace

IndexPage MakeIndexPage(ToviData& document)
{
    const ToviItemDef& def = *document.GetItemDef();
    CString index;
    CString stylesheet;
    def.GetPathAndName(index, stylesheet);
    // Made anew each time: the index file may have changed.
    const CString copy =
        index.empty() || stylesheet.empty() ? "" : MakeIndexCopy(index, stylesheet);
    if (copy.empty()) return {"", WhyNoIndexCopy(def, index, stylesheet)};
    if (CString problem = WhyNoStylesheet(index, stylesheet); !problem.empty()) {
        return {"", std::move(problem)};
    }
    const auto html = Transform(copy, stylesheet, NoteOnStylesheet(def, index));
    if (!html) {
        return {"", index + " をページにできません。XMLとして正しくないか、大きすぎます。納品データ"
                            "の作成元に確かめてください。"};
    }
    CString page = copy.substr(0, copy.rfind('.')) + ".html";
    if (!WriteWorkFile(page, *html)) return {"", WhyNotWritten(index)};
    return {std::move(page), ""};
}

CString WhyNoIndexCopy(const ToviItemDef& def, const CString& index, const CString& stylesheet)
{
    if (index.empty()) {
        return def.GetParentPath() + " に工事管理ファイル INDEX_*.XML（または "
                                     "PHOTO_*.XML）がありません。納品データの上の階層ごと"
                                     "指定しているか確かめてください。";
    }
    if (stylesheet.empty()) {
        return index + " を読めないか、工事・業務のどちらの管理ファイルかを示すDOCTYPEの行が"
                       "ありません。読み取りの権限と納品データの作成元に確かめてください。";
    }
    if (!MibIsInside(def.GetParentPath(), index)) {
        return index + " は納品データの外にあるファイルへのリンクなので、開きません。納品データの作"
                       "成元に確かめてください。";
    }
    return WhyNotWritten(index);
}

CString NoteOnStylesheet(const ToviItemDef& def, const CString& index)
{
    const IndexStylesheet stylesheet =
        FindIndexStylesheet(def.GetXMLType(), ReadIndexDoctypeLine(index));
    if (stylesheet.unknownDtd.empty()) return {};
    return stylesheet.unknownDtd + " に合うスタイルシートがないので、" +
           MibGetFileTitle(stylesheet.path) + " のもので表示しています。";
}

CString WhyNoStylesheet(const CString& index, const CString& stylesheet)
{
    if (MibIsFileExist(stylesheet)) return {};
    return index + " のDTDに合うスタイルシートがないので、ブラウザではページとして表示されません。"
                   "要領の系統の指定とプログラムのインストールを確かめてください。";
}
