#pragma once
// The record of the main screen: the Grand Prix and the season on show, and the hidden boxes that other screens read and
// set. All that the program remembers between two clicks, apart from the files, stands here.
#include "results/drivers.h"
#include "results/race_fields.h"
#include "store/names.h"
#include "store/dialogs.h"

#include <functional>

namespace circuidex::results {

// What the record needs to know of the machine it runs on. Paths are as stored, with either kind of slash, in any case.
struct Surroundings {
    // The picture file that such a path means, empty when there is none or when it can't be shown.
    std::function<std::string(const std::string &)> findPicture = [](const std::string &) { return std::string(); };
    // Any file.
    std::function<std::string(const std::string &)> findFile = [](const std::string &) { return std::string(); };
    std::function<void(const std::string &)> deleteFile = [](const std::string &) {};
};

class MainRecord : public RaceFields {
public:
    MainRecord(Store &files, Dialogs &boxes, Surroundings machine = {});

    Store &store;
    Dialogs &dialogs;
    Surroundings surroundings;

    Field an{"2003"};      // the season: the stem of its file
    Field Label40{"0"};    // the cursor: the calendar slot on show, 0 to 19
    Field Text9;           // the pole-sitter's name, for show
    Field Label11;         // the status line
    Field writesLost;      // the quiet line: what quietNotice() says
    std::string overwritten; // what the last action replaced unasked, and where its copy lies
    Field said;            // the quiet line: what was last kept or refused; empty once something else is on show
    Field Image1, Labell;  // picture of the circuit: the file on show (empty: none), and the path it was asked by
    Field Image2, Label50; // picture of the Grand Prix
    Field a;               // path of the film
    Field film;            // "vrai" while the video button is green: a film of this Grand Prix is at hand
    ByPlace<Field, classifiedPlaces> ptspilot; // the scale in use
    DriverProfile profile;
    Field pol, vic, pts, lblrec; // candidates for the record lists: poles, wins and points, and the pole-sitter's name

    // The editor of the scale, while it is open: gives up its boxes as they stand and closes.
    std::function<void()> closeScaleEditor;

    // The main screen: in a moment the points of this season, which was just passed to, go back to 0.
    std::function<void(const std::string &season)> clearTotalsSoon;

    // Empty, and nothing is kept in it, while the season box holds no year.
    Season season() const { return Season(store, seasonStem(an.text())); }
    WritableSeason writableSeason() const { return WritableSeason(store, seasonStem(an.text())); }

    // What the user should know and isn't asked about: one line each, empty when all is well.
    std::string quietNotice() const;

    // For the history, the race on show: actionOnRace("enregistrement") is "enregistrement de Chine 2005".
    std::string actionOnRace(std::string_view what) const;

    // The name in gp as it is stored, the blanks and quotes around it taken off. False, and the user is told, for one that
    // the files can't carry, and in a season that is no year.
    bool enterGrandPrix();

    Scale scale() const;
    void setScale(const Scale &scale);
    void refreshScale();

    // The program folder as it stands in stored paths, without a slash at its end.
    std::string folder() const { return store.folder().string(); }

private:
    std::shared_ptr<const void> m_alive = std::make_shared<int>();
};

}
