#include "platform/files/Sha256.h"

#include "platform/files/MibFile.h"

#include <limits>
#include <memory>
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

std::optional<Sha256> Sha256OfFile(const CString& path)
{
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(),
                                                                          &EVP_MD_CTX_free);
    if (!context || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1)
        throw std::bad_alloc();
    const bool isRead = MibReadBlocks(
        path, std::numeric_limits<std::size_t>::max(), [&context](std::string_view bytes) {
            return EVP_DigestUpdate(context.get(), bytes.data(), bytes.size()) == 1;
        });
    Sha256 digest{};
    if (!isRead || EVP_DigestFinal_ex(context.get(), digest.data(), nullptr) != 1)
        return std::nullopt;
    return digest;
}
