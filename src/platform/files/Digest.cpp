#include "platform/files/Digest.h"

#include "platform/files/MibFile.h"

#include <sys/stat.h>

#include <QCryptographicHash>

#include <cstdint>

namespace
{
constexpr int digits = 32;
} // namespace

CString TextDigest(std::string_view text)
{
    const auto bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    const QByteArray hex = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    return hex.left(digits).toStdString();
}

CString FileDigest(const CString& path)
{
    const CString full = MibAbsolutePath(path);
    struct stat facts = {};
    stat(full.c_str(), &facts);
    // Not the number of the file, which some network file systems change each time.
    const std::int64_t version[] = {facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec,
                                    facts.st_ctim.tv_sec, facts.st_ctim.tv_nsec};
    CString text = full + '\n';
    for (const std::int64_t part : version) text += std::to_string(part) + ' ';
    return TextDigest(text);
}
