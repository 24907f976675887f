#pragma once
// The journal: articles by number, each a pair of text files of the program folder, "Journal p<n>.txt" with the body
// and "Journal t<n>.txt" with the title. What is typed and not saved yet lies in a draft beside them.
//
// A save is one step although it changes two files: it first writes the article whole into a third one. A program
// killed after that is taken to have saved: the article reads as the new one, and the two files follow at its next
// opening.
#include "store/store.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::media {

struct Article {
    std::string title, body;
    bool operator==(const Article &) const = default;
};

// The text of the page box names the files. What is no whole number names none: it reads empty and keeps nothing.
bool namesArticle(std::string_view number);

// What stands in the place of a title: "Entrez le titre de l'article ici. (N°7)".
std::string titlePrompt(std::string_view number);

// A title is read back up to its first comma or quote.
std::string titleAsRead(std::string_view line);

// Both texts empty when either file is missing.
Article article(const Store &store, std::string_view number);

// False, and the article is the old one, when it can't be kept. Takes away the draft.
bool saveArticle(Store &store, std::string_view number, const Article &article);

// Carries through what a killed program had begun to save.
void finishSaving(const Store &store, std::string_view number);

std::optional<Article> draft(const Store &store, std::string_view number);
bool keepDraft(const Store &store, std::string_view number, const Article &article);
void dropDraft(const Store &store, std::string_view number);

// The titles of a page of the list, from page 1 on: its articles from 60 x page - 60. Empty rows have no title.
inline constexpr int titlesOnPage = 60;
std::array<std::string, titlesOnPage> titlesOf(const Store &store, int page);

// The article before and the one behind; from 0 on none is before.
std::string articleBefore(const Numbers &numbers, std::string_view number);
std::string articleBehind(const Numbers &numbers, std::string_view number);

// The article on show when the journal was last closed, "1" at first.
std::string articleLastOpen(const Store &store);
void keepLastOpen(Store &store, std::string_view number);

}
