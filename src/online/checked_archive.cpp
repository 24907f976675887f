// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/checked_archive.h"

#include "online/archive_names.h"
#include "online/manifest.h"
#include "online/zip_reader.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace circuidex::online {

namespace {

// Names by their fold, and whether a file or a folder bears them.
class Names {
public:
    // What is wrong with one more name; null when nothing is.
    const char *add(const std::string &path, bool folder)
    {
        const std::string fold = foldedName(path);
        for (std::size_t slash = fold.find('/'); slash != fold.npos; slash = fold.find('/', slash + 1))
            if (!m_isFolder.emplace(fold.substr(0, slash), true).first->second)
                return "est à la fois un fichier et un dossier";
        const auto [at, added] = m_isFolder.emplace(fold, folder);
        if (added || (folder && at->second))
            return nullptr;
        return at->second == folder ? "s'y trouve deux fois" : "est à la fois un fichier et un dossier";
    }

private:
    std::map<std::string, bool> m_isFolder;
};

class Check {
public:
    Check(const std::string &path, std::string_view name, const Trust &trust)
        : m_path(path), m_name(name), m_trust(trust)
    {
    }

    CheckedArchive run()
    {
        if (sizeFits() && (m_trust.key.empty() ? programIsSigned() : keyIsReadable()) && entriesFit())
            m_trust.key.empty() ? judgeWithoutKey() : judgeWithKey();
        if (m_result.fits() && m_result.files.empty())
            refuse("l'archive est vide");
        return std::move(m_result);
    }

private:
    bool refuse(const std::string &what)
    {
        if (m_result.fits())
            m_result.refusal = what;
        return false;
    }
    bool refuse(std::string_view stored, const std::string &what)
    {
        return refuse("le nom " + shownName(stored) + " " + what);
    }

    bool sizeFits()
    {
        std::error_code error;
        m_packed = std::filesystem::is_regular_file(m_path, error) ? std::filesystem::file_size(m_path, error) : 0;
        if (error || m_packed == 0)
            return refuse("l'archive n'est pas lisible");
        if (m_packed > mostBytes)
            return refuse("l'archive est trop grande");
        return countOfRecords(m_path) <= mostEntries || refuse("l'archive a plus de 20 000 entrées");
    }

    bool programIsSigned()
    {
        return m_name != programArchive ||
            refuse("le programme n'est remplacé que par une archive signée, et serveurs.ini n'a pas de clé");
    }

    bool keyIsReadable()
    {
        m_key = parsePublicKey(m_trust.key);
        return m_key || refuse("la clé de serveurs.ini n'est pas lisible");
    }

    bool entriesFit()
    {
        ZipReader zip(m_path);
        ZipReader::Entry entry;
        for (std::size_t number = 0; zip.next(entry); ++number)
            if (number >= mostEntries ? !refuse("l'archive a plus de 20 000 entrées") : !take(zip, entry, number))
                return false;
        return !zip.broken() || refuse("l'archive est abîmée");
    }

    bool take(ZipReader &zip, const ZipReader::Entry &entry, std::size_t number)
    {
        if (entry.kind == ZipReader::Kind::encrypted)
            return refuse("l'archive est chiffrée");
        if (entry.kind == ZipReader::Kind::packedOddly)
            return refuse("l'archive est comprimée d'une manière inhabituelle");
        if (entry.kind == ZipReader::Kind::other)
            return refuse(entry.name, "n'est ni un fichier ni un dossier");
        const CleanName name = cleanName(entry.name);
        const bool folder = entry.kind == ZipReader::Kind::folder;
        if (!name.fits() || (name.path.empty() && !folder))
            return refuse(entry.name, name.fits() ? "manque" : name.refusal);
        if (const char *wrong = name.path.empty() ? nullptr : m_names.add(name.path, folder))
            return refuse(entry.name, wrong);
        return folder ||
            (name.path == manifestName        ? takeText(zip, m_manifest)
                 : name.path == signatureName ? takeText(zip, m_signature)
                                              : takeFile(zip, name.path, entry, number));
    }

    bool takeText(ZipReader &zip, std::optional<std::string> &text)
    {
        text.emplace();
        const bool whole = read(zip, [&](std::string_view piece) {
            text->append(piece.substr(0, mostManifest + 1 - std::min(mostManifest + 1, text->size())));
        });
        return whole && (text->size() <= mostManifest || refuse("le manifeste est trop grand"));
    }

    bool takeFile(ZipReader &zip, const std::string &path, const ZipReader::Entry &entry, std::size_t number)
    {
        Sha256 hash;
        const std::uint64_t before = m_unpacked;
        if (!read(zip, [&](std::string_view piece) { hash.add(piece); }))
            return false;
        m_result.files.push_back({path, number, m_unpacked - before, hash.digest(), entry.executable});
        m_result.size += m_unpacked - before;
        return true;
    }

    // Stops as soon as more comes out than may.
    template <typename Take>
    bool read(ZipReader &zip, Take take)
    {
        const std::uint64_t most = std::min(mostBytes, m_packed * mostUnpacking);
        zip.read([&](std::string_view piece) {
            m_unpacked += piece.size();
            if (m_unpacked <= most)
                take(piece);
            return m_unpacked <= most;
        });
        if (m_unpacked > most)
            return refuse("l'archive se déploie à plus de 4 Go ou de 200 fois sa taille");
        return !zip.broken() || refuse("l'archive est abîmée");
    }

    void judgeWithoutKey()
    {
        for (const ArchivedFile &file : m_result.files)
            if (!isData(file.path))
                refuse(file.path, "n'est pas celui d'une donnée : sans clé, seules des données sont acceptées");
        if (m_result.fits() && m_manifest)
            compare();
    }

    void judgeWithKey()
    {
        if (!m_manifest || !m_signature)
            refuse("l'archive n'est pas signée");
        else if (const std::string fault = signatureFault(*m_key, *m_manifest, *m_signature); !fault.empty())
            refuse("la signature " + fault);
        else if (const auto manifest = compare())
            compareEdition(*manifest);
    }

    // Each file is in the list with its hash, and the other way round.
    std::optional<Manifest> compare()
    {
        const auto manifest = parseManifest(*m_manifest);
        if (!manifest)
            refuse("le manifeste n'est pas lisible");
        else if (manifest->files.size() != m_result.files.size())
            refuse("le manifeste n'est pas celui de cette archive");
        for (const ArchivedFile &file : m_result.files)
            if (m_result.fits())
                if (const auto at = manifest->files.find(file.path);
                    at == manifest->files.end() || at->second != hex(file.hash))
                    refuse(file.path, "n'a pas le contenu que dit le manifeste");
        return m_result.fits() ? manifest : std::nullopt;
    }

    void compareEdition(const Manifest &manifest)
    {
        if (manifest.archive != m_name)
            refuse("la signature est celle de " + shownName(manifest.archive));
        else if (manifest.number < m_trust.leastNumber)
            refuse("l'archive est plus ancienne que celle déjà installée");
        else
            m_result.number = manifest.number;
    }

    const std::string &m_path;
    const std::string_view m_name;
    const Trust &m_trust;
    std::optional<PublicKey> m_key;
    std::uint64_t m_packed = 0;
    std::uint64_t m_unpacked = 0;
    Names m_names;
    std::optional<std::string> m_manifest, m_signature;
    CheckedArchive m_result;
};

}

CheckedArchive checkArchive(const std::string &path, std::string_view name, const Trust &trust)
{
    return Check(path, name, trust).run();
}

}
