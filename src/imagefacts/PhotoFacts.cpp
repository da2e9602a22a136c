#include "imagefacts/PhotoFacts.h"

#include "imagefacts/FactsByTitle.h"
#include "platform/files/MibFile.h"
#include "work/RunWorkFile.h"

CString PhotoFacts::OfExif(const CString& title) const
{
    return ExifFactByTitle(exif, title);
}

CString PhotoFacts::OfFile(const CString& title) const
{
    CString value;
    file.GetValue(title.c_str(), value);
    return value;
}

void ReadPhotoFacts(const CString& path, const CString& workFolder, PhotoFacts& facts)
{
    facts.file = FileFacts(path).All();
    if (!ToviExifInfo::IsSvg(path)) {
        facts.exif.Load(path.c_str());
        return;
    }
    const CString picture = WorkFileIn(workFolder, path, svgPictureEnd);
    if (MibIsFileExist(picture) || LumImage::GetMainImageFromSvg(path.c_str(), picture.c_str())) {
        facts.exif.Load(picture.c_str());
    }
}
