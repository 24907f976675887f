#pragma once
// Reads a release of F1DB, its archive of JSON tables, from one pass over the archive: of its files only those told of
// in docs/public_data.md, of those only the fields that are needed. What is broken, hostile or no release is refused.
#include "publicdata/data.h"

#include <cstddef>
#include <memory>
#include <string>

namespace circuidex::publicdata {

// Table by table, so that a screen can answer its user between two.
class Reading {
public:
    explicit Reading(const std::string &path);
    ~Reading();
    Reading(const Reading &) = delete;
    Reading &operator=(const Reading &) = delete;

    // Reads one table more; false when there is nothing left to do.
    bool step();

    int tablesRead() const; // of tables()
    static int tables();

    // In French, a whole sentence; empty as long as all is well.
    const std::string &refusal() const;

    // When step() has answered false and nothing was refused; once.
    Data take();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

struct ReadData {
    Data data;
    std::string refusal; // in French; empty when all is well
    bool fits() const { return refusal.empty(); }
};

ReadData readPublicData(const std::string &path);

}
