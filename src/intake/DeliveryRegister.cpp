#include "intake/DeliveryRegister.h"

#include "platform/files/FileStatus.h"
#include "platform/files/MibFile.h"
#include "platform/files/UserFolders.h"
#include "work/ReadingLimit.h"

#include <algorithm>
#include <ctime>

namespace
{
constexpr std::int64_t formVersion = 1;

constexpr const char* tables = R"(
CREATE TABLE delivery (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL,
    path TEXT NOT NULL,
    identity TEXT NOT NULL UNIQUE,
    added TEXT NOT NULL);
CREATE TABLE photo (
    delivery INTEGER NOT NULL REFERENCES delivery,
    number INTEGER NOT NULL,
    name TEXT NOT NULL,
    path TEXT NOT NULL,
    width INTEGER NOT NULL,
    height INTEGER NOT NULL,
    digest BLOB NOT NULL,
    hashes BLOB NOT NULL,
    signature BLOB NOT NULL,
    moment TEXT NOT NULL,
    PRIMARY KEY (delivery, number)) WITHOUT ROWID;
PRAGMA user_version = 1;
)";

constexpr std::size_t bytesOfHash = 8;

void AppendHash(std::string& bytes, PictureHash hash)
{
    for (std::size_t i = 0; i < bytesOfHash; ++i) bytes += static_cast<char>(hash >> 8 * i & 0xFF);
}

PictureHash HashAt(std::string_view bytes, std::size_t number)
{
    PictureHash hash = 0;
    for (std::size_t i = bytesOfHash; i-- > 0;) {
        hash = hash << 8 | static_cast<unsigned char>(bytes[number * bytesOfHash + i]);
    }
    return hash;
}

std::string PackHashes(const std::optional<PictureMarks>& picture)
{
    std::string bytes;
    if (!picture) return bytes;
    AppendHash(bytes, picture->hashes.whole);
    for (const PictureHash cut : picture->hashes.cut) AppendHash(bytes, cut);
    return bytes;
}

std::string_view BytesOf(const std::optional<PictureMarks>& picture)
{
    if (!picture) return {};
    return {reinterpret_cast<const char*>(picture->signature.data()), picture->signature.size()};
}

/// Nothing for a photograph without a picture, and for one whose marks have another form.
std::optional<PictureMarks> Unpack(const CString& hashes, const CString& signature)
{
    PictureMarks marks;
    const std::size_t count = 1 + marks.hashes.cut.size();
    if (hashes.size() != count * bytesOfHash || signature.size() != marks.signature.size())
        return std::nullopt;
    marks.hashes.whole = HashAt(hashes, 0);
    for (std::size_t i = 0; i + 1 < count; ++i) marks.hashes.cut[i] = HashAt(hashes, i + 1);
    std::copy(signature.begin(), signature.end(), marks.signature.begin());
    return marks;
}

const CString& InFolder(const CString& path)
{
    const CString folder = path.substr(0, path.rfind('/') + 1);
    if (!MakePrivateFolder(folder)) throw DatabaseError(WriteFailure::NotWritable, false, folder);
    return path;
}
} // namespace

CString DeliveryIdentity(const CString& photoFolder)
{
    const CString path = photoFolder + "PHOTO.XML";
    const std::string bytes = MibReadFile(path, ReadingLimit::LoadInBytes()).value_or(path);
    CString digits;
    for (const unsigned char byte : Sha256Of(bytes)) digits += Format("%02x", byte);
    return digits;
}

CString DeliveryRegisterPath()
{
    const CString folder = DataFolder("register");
    return folder.empty() ? folder : folder + "/deliveries.db";
}

DeliveryRegister::DeliveryRegister(const CString& path) : database(InFolder(path))
{
    Transaction transaction(database);
    Database::Statement version = database.Ask("PRAGMA user_version");
    version.Next();
    if (version.Number(0) > formVersion) {
        throw DatabaseError(WriteFailure::Other, false, "made by a later version");
    }
    if (version.Number(0) < formVersion) database.RunAll(tables);
    transaction.Commit();
}

void DeliveryRegister::Add(const CString& identity, const CString& name, const CString& path,
                           const std::vector<PhotoMarks>& marks)
{
    Transaction transaction(database);
    Database::Statement known =
        database.Ask("SELECT id FROM delivery WHERE identity = ?", identity);
    if (known.Next()) {
        database.Run("DELETE FROM photo WHERE delivery = ?", known.Number(0));
        database.Run("DELETE FROM delivery WHERE id = ?", known.Number(0));
    }
    database.Run("INSERT INTO delivery (name, path, identity, added) VALUES (?, ?, ?, ?)", name,
                 path, identity, LocalTimeText(std::time(nullptr)));
    Database::Statement added =
        database.Ask("SELECT id FROM delivery WHERE identity = ?", identity);
    added.Next();
    const std::int64_t id = added.Number(0);
    for (const PhotoMarks& each : marks) {
        const std::string hashes = PackHashes(each.picture);
        const Blob digest = {
            {reinterpret_cast<const char*>(each.digest.data()), each.digest.size()}};
        database.Run("INSERT INTO photo VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", id,
                     std::int64_t{each.photo}, each.name, each.path, std::int64_t{each.size.width},
                     std::int64_t{each.size.height}, digest, Blob{hashes},
                     Blob{BytesOf(each.picture)}, each.moment);
    }
    transaction.Commit();
}

std::vector<RegisteredDelivery> DeliveryRegister::List()
{
    std::vector<RegisteredDelivery> deliveries;
    Database::Statement row = database.Ask(
        "SELECT id, name, path, added, (SELECT COUNT(*) FROM photo WHERE delivery = delivery.id) "
        "FROM delivery ORDER BY id");
    while (row.Next()) {
        deliveries.push_back({row.Number(0), row.Text(1), row.Text(2),
                              static_cast<int>(row.Number(4)), row.Text(3)});
    }
    return deliveries;
}

bool DeliveryRegister::Remove(std::int64_t id)
{
    Transaction transaction(database);
    Database::Statement known = database.Ask("SELECT id FROM delivery WHERE id = ?", id);
    if (!known.Next()) return false;
    database.Run("DELETE FROM photo WHERE delivery = ?", id);
    database.Run("DELETE FROM delivery WHERE id = ?", id);
    transaction.Commit();
    return true;
}

std::vector<EarlierDelivery> DeliveryRegister::AllBut(const CString& identity)
{
    std::vector<EarlierDelivery> deliveries;
    Database::Statement row =
        database.Ask("SELECT id, name FROM delivery WHERE identity <> ? ORDER BY id", identity);
    while (row.Next()) {
        deliveries.push_back({row.Number(0), row.Text(1), PhotosOf(row.Number(0))});
    }
    return deliveries;
}

std::vector<PhotoMarks> DeliveryRegister::PhotosOf(std::int64_t delivery)
{
    std::vector<PhotoMarks> photos;
    Database::Statement row =
        database.Ask("SELECT number, name, path, digest, hashes, signature, "
                     "moment, width, height FROM photo WHERE delivery = ? ORDER BY number",
                     delivery);
    while (row.Next()) {
        PhotoMarks marks{static_cast<int>(row.Number(0)), row.Text(1), row.Text(2), {}, {}, {}, {}};
        const CString digest = row.Text(3);
        if (digest.size() != marks.digest.size()) continue;
        std::copy(digest.begin(), digest.end(), marks.digest.begin());
        marks.picture = Unpack(row.Text(4), row.Text(5));
        marks.moment = row.Text(6);
        marks.size = {static_cast<int>(row.Number(7)), static_cast<int>(row.Number(8))};
        photos.push_back(std::move(marks));
    }
    return photos;
}
