// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Ed25519 keys and signatures in the published text forms of minisign, so that its users can check and sign too. A
// signature is a text of four lines: a comment, base64 of "Ed" (of the message itself) or "ED" (of its BLAKE2b-512
// hash), key number and signature; a trusted comment, and base64 of the signature of that and of the first one.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <sodium/crypto_hash_sha256.h>

namespace circuidex::online {

using Digest = std::array<unsigned char, 32>;

struct PublicKey {
    std::array<unsigned char, 8> number;
    std::array<unsigned char, 32> key;
};

struct SecretKey {
    std::array<unsigned char, 8> number;
    std::array<unsigned char, 64> key; // the public one in its second half
    PublicKey publicKey() const;
};

// The line of base64, alone or behind its comment line.
std::optional<PublicKey> parsePublicKey(std::string_view text);
std::string publicKeyLine(const PublicKey &key);
std::string publicKeyText(const PublicKey &key);

// Keys without a password only.
std::optional<SecretKey> parseSecretKey(std::string_view text);
std::string secretKeyText(const SecretKey &key);

SecretKey newKey();

// The text of the signature, prehashed. The comment is one line.
std::string sign(const SecretKey &key, std::string_view message, std::string_view trustedComment);

// Empty for a genuine signature; otherwise what is wrong with it, in French, to follow "la signature ".
std::string signatureFault(const PublicKey &key, std::string_view message, std::string_view signature);

class Sha256 {
public:
    Sha256();
    void add(std::string_view bytes);
    Digest digest();

private:
    crypto_hash_sha256_state m_state;
};
std::string hex(const Digest &digest);

}
