#include "platform/files/WriteFailure.h"

#include <cerrno>

WriteFailure FailureOf(int error)
{
    switch (error) {
    case 0:
        return WriteFailure::None;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return WriteFailure::NoSpace;
    case EACCES:
    case EPERM:
    case EROFS:
        return WriteFailure::NotWritable;
    case EISDIR:
    case ELOOP:
        return WriteFailure::NotAFile;
    case ENOENT:
    case ENOTDIR:
        return WriteFailure::NoFolder;
    default:
        return WriteFailure::Other;
    }
}

CString WhyNotWritten(const CString& path, WriteFailure failure)
{
    switch (failure) {
    case WriteFailure::None:
        return {};
    case WriteFailure::NoSource:
        return path + " の元のファイルを読めません。読み取りの権限を確かめてください。";
    case WriteFailure::NoSpace:
        return path + " を保存する空き容量がありません。不要なファイルを削除するか、別の場所に保存"
                      "してください。";
    case WriteFailure::NotWritable:
        return path + " には書き込めません。書き込めるようにするか、別の名前や場所にしてください。";
    case WriteFailure::NotAFile:
        return path + " はフォルダや装置などで、ファイルではありません。ファイルの名前を指定してく"
                      "ださい。";
    case WriteFailure::NoFolder:
        return path.substr(0, path.rfind('/') + 1) +
               " というフォルダがありません。保存する場所を確かめてください。";
    case WriteFailure::InDelivery:
        return "納品データのフォルダには書き込みません。" + path +
               " の代わりに別のフォルダを指定してください。";
    case WriteFailure::Other:
        break;
    }
    return path + " に書き込めません。フォルダの場所、書き込みの権限と空き容量を確かめてください。";
}
