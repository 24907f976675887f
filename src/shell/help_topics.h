#pragma once
// Which of the help's topics a screen is about, so that F1 opens it there.
#include <QString>

#include <string_view>

namespace circuidex {

class Screens;

// The box of the help (Form27) that holds the topic, as "Text3". A screen that no topic is about gets "Text1", what the
// help shows when it opens.
std::string_view helpBox(std::string_view screen);

// Opens the help on the topic of that screen; nothing where the program has no help.
void openHelp(Screens &screens, const QString &screen);
// The list of all keys, with those of the screen that it is opened from.
void openKeys(Screens &screens, const QString &screen);
}
