#include "platform/files/Sha256.h"

#include <new>

#include <openssl/evp.h>

Sha256 Sha256Of(std::string_view bytes)
{
    Sha256 digest{};
    const int done =
        EVP_Digest(bytes.data(), bytes.size(), digest.data(), nullptr, EVP_sha256(), nullptr);
    if (done != 1) throw std::bad_alloc();
    return digest;
}
