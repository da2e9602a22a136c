#include "hosts/viewer/RecentFacts.h"

#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/ViewerDocument.h"
#include "inspection/ReviewCounts.h"
#include "platform/files/MibFile.h"
#include "platform/text/QtText.h"
#include "windows/loader/SmallPicture.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>

namespace
{
constexpr QSize largestPicture(96, 72);
constexpr auto streamVersion = QDataStream::Qt_6_0;

/// A name for the profile, whatever the folder is called.
std::string EntryOf(const CString& folder)
{
    const QByteArray name = QByteArray::fromStdString(folder);
    return "Recent" +
           QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex().toStdString();
}

QByteArray Encoded(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!picture.isNull()) picture.save(&buffer, "JPG");
    return bytes;
}
} // namespace

RecentFacts ReadRecentFacts(const CString& folder)
{
    RecentFacts facts;
    QByteArray picture;
    QDataStream stream(FrameState::ReadBytes(EntryOf(folder).c_str()));
    stream.setVersion(streamVersion);
    stream >> facts.title >> facts.worked >> facts.photos >> facts.unchecked >> picture;
    if (stream.status() != QDataStream::Ok) return {};
    facts.picture.loadFromData(picture);
    return facts;
}

CString RecentFolder(const ViewerDocument& document)
{
    CString folder = MibAbsolutePath(document.Folder());
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    return folder;
}

void KeepRecentFacts(ViewerDocument& document)
{
    if (document.Data() == nullptr) return;
    const CString folder = RecentFolder(document);
    const ReviewCounts counts = CountReview(*document.Data());
    QImage picture = SmallPictureOf(*document.Data(), largestPicture);
    if (picture.isNull()) picture = ReadRecentFacts(folder).picture;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << QtText(document.Title()) << QDateTime::currentDateTime() << counts.all
           << counts.unchecked << Encoded(picture);
    FrameState::WriteBytes(EntryOf(folder).c_str(), bytes);
}

QString RecentText(const RecentFacts& facts)
{
    if (facts.title.isEmpty()) return {};
    const QString left =
        facts.unchecked == 0
            ? QStringLiteral("%1枚すべて検査済").arg(facts.photos)
            : QStringLiteral("未検査 %1 / %2枚").arg(facts.unchecked).arg(facts.photos);
    return left + facts.worked.toString(QStringLiteral("　最後の作業 M月d日 H:mm"));
}
