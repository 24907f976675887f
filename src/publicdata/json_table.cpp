#include "publicdata/json_table.h"

#include <cmath>
#include <istream>
#include <streambuf>

#include <nlohmann/json.hpp>

namespace circuidex::publicdata {

namespace {

// What the parser holds in memory is one text or number at most, so none may be long.
class Text : public std::streambuf {
public:
    explicit Text(const Pieces &pieces) : m_pieces(pieces) { }

protected:
    int_type underflow() override
    {
        const std::string_view piece = m_pieces();
        if (piece.empty() || !fits(piece))
            return traits_type::eof();
        char *const begin = const_cast<char *>(piece.data()); // NOLINT: only read
        setg(begin, begin, begin + piece.size());
        return traits_type::to_int_type(piece.front());
    }

private:
    bool fits(std::string_view piece)
    {
        for (std::size_t at = 0; at < piece.size();) {
            const std::size_t quote = std::min(piece.find('"', at), piece.size());
            m_sinceQuote += quote - at;
            if (m_sinceQuote > longestText)
                return false;
            if (quote < piece.size())
                m_sinceQuote = 0;
            at = quote + 1;
        }
        return true;
    }

    const Pieces &m_pieces;
    std::size_t m_sinceQuote = 0;
};

}

// Called by the parser; an answer of false ends the reading.
class RowReader {
public:
    RowReader(const std::vector<std::string_view> &fields, const std::function<bool(const Row &)> &take)
        : m_fields(fields), m_take(take), m_row(fields.size())
    {
    }

    bool null()
    {
        scalar(Row::Kind::none);
        return m_depth >= 2;
    }
    bool boolean(bool value) { return set(Row::Kind::truth, value ? 1 : 0); }
    bool number_integer(std::int64_t value) { return set(Row::Kind::number, static_cast<double>(value)); }
    bool number_unsigned(std::uint64_t value) { return set(Row::Kind::number, static_cast<double>(value)); }
    bool number_float(double value, const std::string &) { return set(Row::Kind::number, value); }
    bool string(std::string &value)
    {
        if (Row::Cell *const cell = scalar(Row::Kind::text))
            cell->text.swap(value);
        return m_depth >= 2;
    }
    bool binary(std::vector<std::uint8_t> &) { return false; }
    bool start_object(std::size_t)
    {
        if (m_depth == 0)
            return false; // not a list
        if (++m_depth == 2)
            for (Row::Cell &cell : m_row.m_cells)
                cell.kind = Row::Kind::none;
        return m_depth <= deepest;
    }
    bool end_object() { return --m_depth != 1 || m_take(m_row); }
    bool start_array(std::size_t) { return ++m_depth != 2 && m_depth <= deepest; }
    bool end_array()
    {
        --m_depth;
        return true;
    }
    bool key(std::string &name)
    {
        if (m_depth == 2)
            for (m_field = 0; m_field < m_fields.size() && m_fields[m_field] != name;)
                ++m_field;
        return true;
    }
    template <typename Error>
    bool parse_error(std::size_t, const std::string &, const Error &)
    {
        return false;
    }

private:
    static constexpr int deepest = 32;

    // The cell of a value that stands in an object of the list and was asked for.
    Row::Cell *scalar(Row::Kind kind)
    {
        if (m_depth != 2 || m_field >= m_fields.size())
            return nullptr;
        Row::Cell &cell = m_row.m_cells[m_field];
        cell.kind = kind;
        return &cell;
    }
    bool set(Row::Kind kind, double value)
    {
        if (Row::Cell *const cell = scalar(kind))
            cell->number = value;
        return m_depth >= 2; // a bare value is no object
    }

    const std::vector<std::string_view> &m_fields;
    const std::function<bool(const Row &)> &m_take;
    Row m_row;
    std::size_t m_field = 0;
    int m_depth = 0; // 1 in the list, 2 in an object of it
};

std::string_view Row::text(std::size_t field) const
{
    const Cell &cell = m_cells[field];
    return cell.kind == Kind::text ? std::string_view(cell.text) : std::string_view();
}

std::optional<double> Row::number(std::size_t field) const
{
    const Cell &cell = m_cells[field];
    return cell.kind == Kind::number && std::isfinite(cell.number) ? std::optional(cell.number) : std::nullopt;
}

std::optional<int> Row::whole(std::size_t field) const
{
    constexpr double most = 1e6;
    const auto value = number(field);
    return value && std::abs(*value) <= most && *value == std::floor(*value) ? std::optional(static_cast<int>(*value))
                                                                             : std::nullopt;
}

bool Row::truth(std::size_t field) const
{
    return m_cells[field].kind == Kind::truth && m_cells[field].number != 0;
}

bool readTable(const Pieces &pieces, const std::vector<std::string_view> &fields,
               const std::function<bool(const Row &)> &take)
{
    Text text(pieces);
    std::istream stream(&text);
    RowReader reader(fields, take);
    return nlohmann::json::sax_parse(stream, &reader);
}

}
