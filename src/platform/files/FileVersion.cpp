#include "platform/files/FileVersion.h"

#include "platform/files/MibFile.h"

#include <QCryptographicHash>

#include <limits>

CString FileVersion(const CString& path)
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    const bool complete = MibReadBlocks(
        path, std::numeric_limits<std::size_t>::max(), [&hash](std::string_view block) {
            hash.addData(QByteArrayView(block.data(), static_cast<qsizetype>(block.size())));
            return true;
        });
    return complete ? hash.result().toHex().toStdString() : CString();
}
