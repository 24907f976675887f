#pragma once
// One table of a release: a JSON array of objects, read as it comes out of the archive. Of each object only the fields
// asked for are kept, and only until the next one; what stands deeper is passed over.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::publicdata {

// The fields of one object, by their place in the list asked for. Each is absent when the object hasn't got it, when it
// is null, or of another kind than asked for.
class Row {
public:
    explicit Row(std::size_t fields) : m_cells(fields) { }

    std::string_view text(std::size_t field) const; // empty when absent
    std::optional<double> number(std::size_t field) const;
    std::optional<int> whole(std::size_t field) const; // absent also beyond a million
    bool truth(std::size_t field) const; // false when absent

private:
    friend class RowReader;
    enum class Kind { none, text, number, truth };
    struct Cell {
        Kind kind = Kind::none;
        std::string text;
        double number = 0;
    };
    std::vector<Cell> m_cells;
};

// The next piece of the text, empty at its end. It stays valid until the next call.
using Pieces = std::function<std::string_view()>;

inline constexpr std::size_t longestText = 4096; // bytes; more between two quotes is no table of ours

// False when the text isn't an array of objects, or when `take` answers false.
bool readTable(const Pieces &pieces, const std::vector<std::string_view> &fields,
               const std::function<bool(const Row &)> &take);

}
