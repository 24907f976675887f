#include "shell/help_topics.h"

#include "shell/screens.h"

#include <algorithm>
#include <span>

namespace circuidex {

namespace {

struct Topic {
    std::string_view box;
    std::span<const std::string_view> screens;
};

constexpr std::string_view recording[]{"Form1", "Form12", "Form30", "Form34", "Form40", "Form48", "Form49"};
constexpr std::string_view opening[]{"Form4", "Form25", "Form33", "Form68", "Form94"};
constexpr std::string_view standings[]{"Form5",  "Form6",   "Form31",  "Form51", "Form55", "Form56",
                                       "Form57", "Form63",  "Form75",  "Form76", "Form77", "Form91",
                                       "Form92", "Form111", "Form112", "Form113"};
constexpr std::string_view full[]{"Form7", "Form70"};
constexpr std::string_view profile[]{"Form2", "Form3", "Form14", "Form26", "Form38", "Form42"};
constexpr std::string_view comparing[]{
    "Form8",   "Form11",  "Form32",  "Form36",  "Form41",  "Form45",  "Form50",  "Form52",  "Form53",
    "Form60",  "Form61",  "Form69",  "Form71",  "Form72",  "Form73",  "Form78",  "Form79",  "Form80",
    "Form81",  "Form82",  "Form83",  "Form84",  "Form85",  "Form86",  "Form87",  "Form88",  "Form89",
    "Form90",  "Form95",  "Form100", "Form101", "Form102", "Form103", "Form104", "Form105", "Form106",
    "Form107", "Form108", "Form109", "Form110", "Form114", "Form115", "Form116", "Form117", "Form118",
    "Form119", "Form120", "Form121", "Form122", "Form123", "Form124"};
constexpr std::string_view winners[]{"Form20", "Form21", "Form22", "Form23", "Form24", "Form43", "Form126", "Form127"};
constexpr std::string_view newSeason[]{"Form39"};
constexpr std::string_view media[]{"frmmain", "Form13", "Form15", "Form16", "Form28",
                                   "Form29",  "Form58", "Form65", "Form96", "Form98"};

constexpr Topic topics[]{{"Text2", recording}, {"Text3", opening},   {"Text4", standings},
                         {"Text5", full},      {"Text7", profile},   {"Text6", comparing},
                         {"Text8", winners},   {"Text9", newSeason}, {"Text10", media}};

}

std::string_view helpBox(std::string_view screen)
{
    for (const Topic &topic : topics)
        if (std::ranges::find(topic.screens, screen) != topic.screens.end())
            return topic.box;
    return "Text1";
}

void openHelp(Screens &screens, const QString &screen)
{
    const QString box = qt(helpBox(screen.toStdString()));
    if (Screen *help = screens.open(u"Form27"_s); help && box != u"Text1")
        help->setText(u"Text1"_s, help->text(box));
}

void openKeys(Screens &screens, const QString &screen)
{
    if (Screen *keys = screens.open(u"Raccourcis"_s); keys && screen != keys->name())
        keys->setText(u"fenetre"_s, screen);
}
}
