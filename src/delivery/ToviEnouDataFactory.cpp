#include "delivery/ToviEnouDataFactory.h"

#include "delivery/MediaCombine.h"
#include "delivery/PhotoXmlReader.h"
#include "delivery/ToviData.h"
#include "loading/IndexCopy.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/MibFile.h"
#include "platform/xml/DoxDocument.h"
#include "work/ReadingLimit.h"

#include <utility>

ToviData* ToviEnouDataFactory::OnNewDocumentInstance(CDocument* host)
{
    return new ToviData(host, SrcPath(), GetXMLType());
}

bool ToviEnouDataFactory::OnLoad(ToviLoadCallback callback, void* arg)
{
    problem.clear();
    ToviData* target = GetDocument();
    if (target == nullptr) return false;
    CString xmlPath = SrcPath();
    MibNormalDir(xmlPath);
    xmlPath += "PHOTO.XML";
    target->Title(xmlPath.c_str());
    target->GetPhotoDataArray()->RemoveAll();
    target->GetMngItemPhoto()->RemoveAll();

    DoxDocument xml;
    xml.LimitSize(ReadingLimit::LoadInBytes());
    if (!MibIsFileExist(xmlPath) || !xml.Initiate() || !xml.Load(xmlPath, false, nullptr)) {
        problem = xml.Problem().empty() ? "ファイルがありません" : xml.Problem();
        return false;
    }
    PhotoXmlReader reader(*target, xml, [this, callback, arg](const CString& text) {
        OnProgress(callback, text.c_str(), arg);
    });
    if (!reader.Read()) {
        problem = "必要な要素がありません";
        return false;
    }
    if (target->GetPhotoDataArray()->IsEmpty()) target->SetErrorType(ReadErrNoPhotos);
    return true;
}

CString ToviEnouDataFactory::GetNewIndexPath(const CString& indexPath,
                                             const CString& stylesheetPath)
{
    return MakeIndexCopy(indexPath, stylesheetPath);
}

bool ToviEnouDataFactory::StartCombineProc(CString path, ToviData* opened, bool rebuildPaths)
{
    if (opened == nullptr) return false;
    MediaCombine combine(*opened);
    const bool ended = combine.Run(std::move(path), rebuildPaths);
    dataFolderPath = combine.DataFolderPath();
    combineCancelled = combine.IsCancelled();
    return ended;
}

void ToviEnouDataFactory::DeleteTempData()
{
    FindCombineArea().Delete();
}
