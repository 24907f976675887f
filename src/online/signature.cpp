// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/signature.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include <sodium.h>

namespace circuidex::online {

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::string_view plain = "Ed", prehashed = "ED";
constexpr std::string_view trusted = "trusted comment: ", untrusted = "untrusted comment: ";

bool ready()
{
    static const bool started = sodium_init() >= 0;
    return started;
}

const unsigned char *raw(std::string_view text)
{
    return reinterpret_cast<const unsigned char *>(text.data());
}

std::string base64(std::span<const unsigned char> bytes)
{
    std::string text(sodium_base64_encoded_len(bytes.size(), sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(), sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // its end mark
    return text;
}

// Absent unless the text holds exactly so many bytes.
std::optional<Bytes> fromBase64(std::string_view text, std::size_t size)
{
    Bytes bytes(size);
    std::size_t got = 0;
    const bool whole = sodium_base642bin(bytes.data(), size, text.data(), text.size(), nullptr, &got, nullptr,
                                         sodium_base64_VARIANT_ORIGINAL) == 0;
    return whole && got == size ? std::optional(std::move(bytes)) : std::nullopt;
}

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
    }
    return lines;
}

// The base64 of a key: the last line that isn't empty.
std::string_view lastLine(std::string_view text)
{
    std::vector<std::string_view> lines = linesOf(text);
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines.empty() ? std::string_view() : lines.back();
}

Bytes joined(std::initializer_list<std::span<const unsigned char>> parts)
{
    Bytes all;
    for (const auto &part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::span<const unsigned char> bytesOf(std::string_view text)
{
    return {raw(text), text.size()};
}

template <std::size_t size>
void copyInto(std::array<unsigned char, size> &to, const Bytes &from, std::size_t at)
{
    std::memcpy(to.data(), from.data() + at, size);
}

std::array<unsigned char, 64> hashed(std::string_view message)
{
    std::array<unsigned char, 64> hash;
    crypto_generichash(hash.data(), hash.size(), raw(message), message.size(), nullptr, 0);
    return hash;
}

std::array<unsigned char, 64> signatureOf(const SecretKey &key, std::span<const unsigned char> message)
{
    std::array<unsigned char, 64> signature;
    crypto_sign_detached(signature.data(), nullptr, message.data(), message.size(), key.key.data());
    return signature;
}

bool genuine(const PublicKey &key, const unsigned char *signature, std::span<const unsigned char> message)
{
    return crypto_sign_verify_detached(signature, message.data(), message.size(), key.key.data()) == 0;
}

Digest checksum(const SecretKey &key)
{
    const Bytes all = joined({bytesOf(plain), key.number, key.key});
    Digest sum;
    crypto_generichash(sum.data(), sum.size(), all.data(), all.size(), nullptr, 0);
    return sum;
}

// Algorithm, derivation of the key from a password (none), kind of checksum, and 48 bytes that only a password needs.
constexpr std::string_view secretHead("Ed\0\0B2", 6);
constexpr std::size_t passwordBytes = 48;

}

PublicKey SecretKey::publicKey() const
{
    PublicKey half{number, {}};
    std::copy(key.begin() + 32, key.end(), half.key.begin());
    return half;
}

std::optional<PublicKey> parsePublicKey(std::string_view text)
{
    const auto bytes = ready() ? fromBase64(lastLine(text), 2 + 8 + 32) : std::nullopt;
    if (!bytes || std::memcmp(bytes->data(), plain.data(), plain.size()) != 0)
        return std::nullopt;
    PublicKey key;
    copyInto(key.number, *bytes, 2);
    copyInto(key.key, *bytes, 10);
    return key;
}

std::string publicKeyLine(const PublicKey &key)
{
    return base64(joined({bytesOf(plain), key.number, key.key}));
}

std::string publicKeyText(const PublicKey &key)
{
    return std::string(untrusted) + "Circuidex, public key\n" + publicKeyLine(key) + "\n";
}

std::optional<SecretKey> parseSecretKey(std::string_view text)
{
    const std::size_t keyAt = secretHead.size() + passwordBytes;
    const auto bytes = ready() ? fromBase64(lastLine(text), keyAt + 8 + 64 + 32) : std::nullopt;
    if (!bytes || std::memcmp(bytes->data(), secretHead.data(), secretHead.size()) != 0)
        return std::nullopt;
    SecretKey key;
    copyInto(key.number, *bytes, keyAt);
    copyInto(key.key, *bytes, keyAt + 8);
    const Digest sum = checksum(key), none{}; // minisign writes none without a password
    const unsigned char *const held = bytes->data() + keyAt + 72;
    const bool good = std::equal(sum.begin(), sum.end(), held) || std::equal(none.begin(), none.end(), held);
    return good ? std::optional(key) : std::nullopt;
}

std::string secretKeyText(const SecretKey &key)
{
    const Bytes noPassword(passwordBytes);
    return std::string(untrusted) + "Circuidex, secret key\n" +
        base64(joined({bytesOf(secretHead), noPassword, key.number, key.key, checksum(key)})) + "\n";
}

SecretKey newKey()
{
    SecretKey key{};
    std::array<unsigned char, 32> half;
    if (!ready())
        return key;
    randombytes_buf(key.number.data(), key.number.size());
    crypto_sign_keypair(half.data(), key.key.data());
    return key;
}

std::string sign(const SecretKey &key, std::string_view message, std::string_view trustedComment)
{
    if (!ready())
        return {};
    const auto signature = signatureOf(key, hashed(message));
    const auto whole = signatureOf(key, joined({signature, bytesOf(trustedComment)}));
    return std::string(untrusted)
        .append("Circuidex\n")
        .append(base64(joined({bytesOf(prehashed), key.number, signature})))
        .append("\n")
        .append(trusted)
        .append(trustedComment)
        .append("\n")
        .append(base64(whole))
        .append("\n");
}

std::string signatureFault(const PublicKey &key, std::string_view message, std::string_view signature)
{
    const std::vector<std::string_view> lines = linesOf(signature);
    if (!ready() || lines.size() < 4 || !lines[0].starts_with(untrusted) || !lines[2].starts_with(trusted))
        return "n'est pas lisible";
    const auto first = fromBase64(lines[1], 2 + 8 + 64), whole = fromBase64(lines[3], 64);
    const std::string_view algorithm =
        first ? std::string_view(reinterpret_cast<const char *>(first->data()), 2) : std::string_view();
    if (!whole || (algorithm != plain && algorithm != prehashed))
        return "n'est pas lisible";
    if (!std::equal(key.number.begin(), key.number.end(), first->begin() + 2))
        return "est d'une autre clé que celle de serveurs.ini";
    const unsigned char *const proper = first->data() + 10;
    if (!(algorithm == plain ? genuine(key, proper, bytesOf(message)) : genuine(key, proper, hashed(message))))
        return "n'est pas celle de ce contenu";
    const std::string_view comment = lines[2].substr(trusted.size());
    if (!genuine(key, whole->data(), joined({{proper, 64}, bytesOf(comment)})))
        return "a un commentaire changé";
    return {};
}

Sha256::Sha256()
{
    crypto_hash_sha256_init(&m_state);
}

void Sha256::add(std::string_view bytes)
{
    crypto_hash_sha256_update(&m_state, raw(bytes), bytes.size());
}

Digest Sha256::digest()
{
    Digest digest;
    crypto_hash_sha256_final(&m_state, digest.data());
    return digest;
}

std::string hex(const Digest &digest)
{
    std::string text(2 * digest.size() + 1, '\0');
    sodium_bin2hex(text.data(), text.size(), digest.data(), digest.size());
    text.pop_back();
    return text;
}

}
