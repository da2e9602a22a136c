#include "delivery/DeliveryOpening.h"

#include "delivery/DeliveryArchive.h"
#include "delivery/ToviEnouDataFactory.h"
#include "loading/DeliveryLocation.h"
#include "platform/files/Archive.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "work/ReadingLimit.h"

#include <algorithm>

namespace
{
bool ShowProgress(const ToviDataFactory*, const ToviData*, const char* text, void*)
{
    GetHostServices().userInterface->ShowProgress(text);
    return true;
}

/// Asked before anything else: of a file that is far too large not even the kind is of interest.
CString WhyTooLarge(const CString& photoFolder)
{
    const CString xmlPath = photoFolder + "PHOTO.XML";
    const std::size_t size = MibFileSize(xmlPath);
    if (size <= ReadingLimit::LoadInBytes()) return {};
    return Format("%s は %zuMB あり、読み込む上限の %dMB を超えています。壊れていないか納品データの"
                  "作成元に確かめ、正しければ tovi settings --set reading-limit=%d "
                  "までの値で上限を上げてください。",
                  xmlPath.c_str(), ((size - 1) >> 20) + 1, ReadingLimit::Load(),
                  ReadingLimit::largest);
}

CString WhyNotUsable(const OpenedDelivery& delivery, const CString& familyHint)
{
    const CString xmlPath = delivery.photoFolder + "PHOTO.XML";
    switch (delivery.document->GetErrorType()) {
    case ReadErrNoItemFile:
        return MibProgramPath() +
               "READITEM.XML がありません。プログラムをインストールし直してください。";
    case ReadErrUnknownPhotoXml:
        return xmlPath + " を開けないか、対応していない要領のDTDです。読み取りの権限と" +
               familyHint + "を確かめてください。";
    case ReadErrNoPhotos:
        return xmlPath + " に写真情報がありません。納品データの作成元に確かめてください。";
    case ReadErrDefinition:
        return MibProgramPath() +
               "READITEM.XML を読み込めません。プログラムをインストールし直してください。";
    case ReadErrNone:
        break;
    }
    return {};
}

CString WhatIsMissing(const OpenedDelivery& delivery)
{
    const int elements = delivery.document->GetReadingCounts().photoElements;
    const int photos = delivery.document->GetTotalCountPhoto();
    if (elements <= photos) return {};
    return Format("%sPHOTO.XML には写真情報が%d件ありますが、読み込めた写真は%d枚です。写真情報の"
                  "置かれている場所が要領と違うので、納品データの作成元に確かめてください。",
                  delivery.photoFolder.c_str(), elements, photos);
}

/// The folder that stands for \p path, which can be a file: opened later it leads to the same
/// \p photoFolder.
CString FolderThatLeadsTo(const CString& photoFolder, const CString& path)
{
    if (!MibIsFileExist(path)) return path;
    CString folder = MibAbsolutePath(path);
    MibParentDir(folder);
    return FindPhotoFolders(folder) == CStringArray{photoFolder} ? folder : photoFolder;
}

CString WhyNotThisFile(const CString& path)
{
    if (EqualNoCase(MibGetFileName(path), "PHOTO.XML")) {
        return path +
               " のほかに、名前の大文字と小文字だけが違う PHOTO.XML が同じフォルダにあります。"
               "正しい方だけを残した写しを開いてください。";
    }
    return path + " からは納品データを開けません。PHOTO.XML、PHOTO フォルダと並ぶ INDEX_*.XML、"
                  "またはそのフォルダを指定してください。";
}

CString Listed(const CStringArray& photoFolders)
{
    constexpr int mostNames = 10;
    CString names;
    for (int i = 0; i < std::min(photoFolders.GetSize(), mostNames); ++i) {
        names += (i == 0 ? "" : "、") + DeliveryFolderName(photoFolders[i]);
    }
    return photoFolders.GetSize() > mostNames ? names + " ほか" : names;
}

void Load(CDocument& host, OpenedDelivery& delivery, const CString& familyHint)
{
    ToviEnouDataFactory factory;
    try {
        delivery.document.reset(factory.Create(&host, delivery.photoFolder.c_str(), delivery.family,
                                               ShowProgress, nullptr));
    } catch (const InvalidArgument&) {
        delivery.problem =
            MibProgramPath() +
            "READITEM.XML "
            "の項目の並びが正しくありません。プログラムをインストールし直してください。";
        return;
    }
    if (!delivery.document) {
        delivery.problem = delivery.photoFolder + "PHOTO.XML を読み込めません（" +
                           factory.GetProblem() + "）。納品データの作成元に確かめてください。";
    } else if (!delivery.IsLoaded()) {
        delivery.problem = WhyNotUsable(delivery, familyHint);
    } else {
        delivery.notice = WhatIsMissing(delivery);
    }
}
} // namespace

CString DeliveryFolderName(const CString& photoFolder)
{
    CString above = photoFolder;
    MibParentDir(above);
    above.pop_back();
    return MibGetFileName(above);
}

CString WhyNoDelivery(const CString& path, const CStringArray& photoFolders)
{
    if (!photoFolders.IsEmpty()) {
        return Format(
            "%s には納品データが%dつあります（%s）。どれか1つのフォルダを指定してください。",
            path.c_str(), photoFolders.GetSize(), Listed(photoFolders).c_str());
    }
    if (MibIsFileExist(path)) return WhyNotThisFile(path);
    if (!MibIsFolderExist(path)) {
        return path + " というフォルダがありません。フォルダの場所と名前を確かめてください。";
    }
    return path + " に PHOTO.XML が見つかりません。PHOTO.XML "
                  "のあるフォルダか、その上のフォルダを指定してください。";
}

OpenedDelivery OpenDelivery(CDocument& host, const CString& path,
                            std::optional<PhotoXMLType> family, const CString& familyHint)
{
    OpenedDelivery delivery;
    if (IsArchiveName(path) && MibIsFileExist(path)) {
        const UnpackedDelivery unpacked = UnpackDelivery(path);
        if (unpacked.problem.empty())
            return OpenDelivery(host, unpacked.folder, family, familyHint);
        delivery.folder = path;
        delivery.problem = unpacked.problem;
        return delivery;
    }
    const CStringArray found = FindPhotoFolders(path);
    if (found.GetSize() != 1) {
        delivery.folder = path;
        delivery.problem = WhyNoDelivery(path, found);
        return delivery;
    }
    delivery.photoFolder = found[0];
    delivery.folder = FolderThatLeadsTo(delivery.photoFolder, path);
    delivery.problem = WhyTooLarge(delivery.photoFolder);
    if (!delivery.problem.empty()) return delivery;
    delivery.family = family ? *family : GuessFamily(delivery.photoFolder);
    Load(host, delivery, familyHint);
    GetHostServices().userInterface->ShowProgress("");
    return delivery;
}
