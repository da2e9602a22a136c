#pragma once

#include "intake/Doubles.h"
#include "platform/store/Database.h"

struct RegisteredDelivery
{
    std::int64_t id = 0;
    /// That of the work, or of the folder.
    CString name;
    CString path;
    int photos = 0;
    /// When it was put in, in local time.
    CString added;
};

/// The register of earlier deliveries: what is compared of their photographs, in a database of this
/// user's. The deliveries themselves need not be at hand any more. Every operation throws
/// DatabaseError.
class TOVI_EXPORT DeliveryRegister
{
public:
    /// In the file \p path, which is made where it is missing, with its folder.
    explicit DeliveryRegister(const CString& path);

    /// Puts the delivery of \p identity in, in the place of what has been put in of it before. \p
    /// name and \p path are for people.
    void Add(const CString& identity, const CString& name, const CString& path,
             const std::vector<PhotoMarks>& marks);
    std::vector<RegisteredDelivery> List();
    /// False when there is none.
    bool Remove(std::int64_t id);
    /// All deliveries but that of \p identity.
    std::vector<EarlierDelivery> AllBut(const CString& identity);

private:
    std::vector<PhotoMarks> PhotosOf(std::int64_t delivery);

    Database database;
};

/// What tells a delivery from others wherever it lies: the bytes of the PHOTO.XML in \p
/// photoFolder.
TOVI_EXPORT CString DeliveryIdentity(const CString& photoFolder);

/// Where the register of this user is; empty when there is no home folder.
TOVI_EXPORT CString DeliveryRegisterPath();
