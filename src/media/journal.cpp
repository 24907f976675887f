#include "media/journal.h"

#include "store/backups.h"
#include "store/history.h"
#include "store/keys.h"
#include "store/text_file.h"

#include <algorithm>

namespace circuidex::media {

namespace {

// Closes a text of two parts; without it a power cut came before the file was whole.
constexpr std::string_view whole = "\n[fin]";

constexpr std::string_view lastOpen = "pagearticle"; // key of the archive
constexpr std::size_t longestTitle = 1 << 20; // bytes of a file that the list reads through

std::string named(std::string_view kind, std::string_view number)
{
    return std::string("Journal ").append(kind).append(number).append(".txt");
}
std::string bodyFile(std::string_view number)
{
    return named("p", number);
}
std::string titleFile(std::string_view number)
{
    return named("t", number);
}
std::string draftFile(std::string_view number)
{
    return named("brouillon ", number);
}
std::string savingFile(std::string_view number)
{
    return named("enregistrement ", number);
}

std::string folderOf(const Store &store)
{
    return store.folder().string();
}

// Title and body in one text. A title has one line.
std::string together(const Article &article)
{
    std::string line = article.title;
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line.append("\n").append(article.body).append(whole);
}

std::optional<Article> apart(const std::optional<std::string> &text)
{
    const auto line = text ? text->find('\n') : std::string::npos;
    if (line == std::string::npos || !text->ends_with(whole) || text->size() < line + 1 + whole.size())
        return std::nullopt;
    return Article{text->substr(0, line), text->substr(line + 1, text->size() - line - 1 - whole.size())};
}

std::optional<std::string> readText(const Store &store, const std::string &file, std::size_t most = disk::largest)
{
    return text_file::read(folderOf(store), file, most);
}

std::optional<Article> beingSaved(const Store &store, std::string_view number)
{
    return apart(readText(store, savingFile(number)));
}

void remove(const Store &store, const std::string &file)
{
    const std::string path = folderOf(store) + "/" + file;
    if (disk::look(path).kind == disk::Kind::missing || !store.mayDelete(path))
        return;
    store.history().before(path);
    disk::removeName(path);
}

bool write(const Store &store, const std::string &file, std::string_view text,
           bool (*how)(const std::string &, const std::string &, std::string_view) = text_file::writeThrough)
{
    store.history().before(folderOf(store) + "/" + file);
    return how(folderOf(store), file, text);
}

// Half an article isn't shown, but it isn't written over either: it gets a second name first.
bool keepHalf(const Store &store, const std::string &file, const std::string &other)
{
    const std::string path = folderOf(store) + "/" + file;
    const auto missing = [&store](const std::string &name) {
        return disk::look(folderOf(store) + "/" + name).kind == disk::Kind::missing;
    };
    if (missing(file) || !missing(other))
        return true;
    const std::string stem = path.substr(0, path.size() - std::string_view(".txt").size());
    const std::string second = disk::freeName(stem + "." + backups::minuteNow(), ".txt");
    return !second.empty() && disk::keepAs(path, second);
}

// The two files of an article that stands in its third one. True when it is needed no more.
bool spread(const Store &store, std::string_view number, const Article &article)
{
    return write(store, bodyFile(number), article.body) && write(store, titleFile(number), article.title);
}

}

bool namesArticle(std::string_view number)
{
    if (number.starts_with('-'))
        number.remove_prefix(1);
    return !number.empty() && number.size() <= 9 &&
        std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string titlePrompt(std::string_view number)
{
    return std::string("Entrez le titre de l'article ici. (N°").append(number).append(")");
}

std::string titleAsRead(std::string_view line)
{
    constexpr std::string_view blanks = " \t";
    line = line.substr(0, line.find_first_of("\r\n"));
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    if (line.starts_with('"'))
        return std::string(line.substr(1, line.find('"', 1) - 1));
    line = line.substr(0, line.find_first_of(",\""));
    return std::string(line.substr(0, line.find_last_not_of(blanks) + 1));
}

Article article(const Store &store, std::string_view number)
{
    if (!namesArticle(number))
        return {};
    if (auto saved = beingSaved(store, number))
        return {titleAsRead(saved->title), std::move(saved->body)};
    auto body = readText(store, bodyFile(number));
    const auto title = readText(store, titleFile(number));
    if (!body || !title)
        return {};
    return {titleAsRead(*title), *std::move(body)};
}

bool saveArticle(Store &store, std::string_view number, const Article &article)
{
    const std::string body = bodyFile(number), title = titleFile(number), saving = savingFile(number);
    if (!namesArticle(number) || store.readOnly() || !text_file::mayWrite(folderOf(store), body) ||
        !text_file::mayWrite(folderOf(store), title))
        return false;
    finishSaving(store, number);
    const Action undoable(store, std::string("article N°").append(number).append(" du journal"));
    if (!keepHalf(store, body, title) || !keepHalf(store, title, body))
        return false;
    if (!write(store, saving, together(article))) {
        remove(store, saving);
        return false;
    }
    dropDraft(store, number);
    if (spread(store, number, article))
        remove(store, saving);
    return true;
}

void finishSaving(const Store &store, std::string_view number)
{
    if (!namesArticle(number) || store.readOnly())
        return;
    const auto begun = beingSaved(store, number);
    if (begun)
        dropDraft(store, number);
    if (!begun || spread(store, number, *begun))
        remove(store, savingFile(number));
}

std::optional<Article> draft(const Store &store, std::string_view number)
{
    return namesArticle(number) ? apart(readText(store, draftFile(number))) : std::nullopt;
}

bool keepDraft(const Store &store, std::string_view number, const Article &article)
{
    return namesArticle(number) && !store.readOnly() &&
        write(store, draftFile(number), together(article), text_file::write);
}

void dropDraft(const Store &store, std::string_view number)
{
    if (namesArticle(number))
        remove(store, draftFile(number));
}

std::array<std::string, titlesOnPage> titlesOf(const Store &store, int page)
{
    std::array<std::string, titlesOnPage> titles;
    for (int row = 0; row < titlesOnPage; ++row) {
        const std::string number = std::to_string(titlesOnPage * (page - 1) + row);
        const auto saved = beingSaved(store, number);
        const auto line = saved ? saved->title : readText(store, titleFile(number), longestTitle);
        if (line)
            titles[static_cast<std::size_t>(row)] = titleAsRead(*line);
    }
    return titles;
}

std::string articleBefore(const Numbers &numbers, std::string_view number)
{
    const auto value = numbers.value(number);
    return value && *value < 1 ? std::string(number) : numbers.stepped(number, -1);
}

std::string articleBehind(const Numbers &numbers, std::string_view number)
{
    return numbers.stepped(number, 1);
}

std::string articleLastOpen(const Store &store)
{
    const std::string kept = store.LireINI(keys::ARCHIVES, keys::N, lastOpen);
    return kept.empty() ? "1" : kept;
}

void keepLastOpen(Store &store, std::string_view number)
{
    store.EcrireINI(keys::ARCHIVES, keys::N, lastOpen, number);
}

}
