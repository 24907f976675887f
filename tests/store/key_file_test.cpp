#include "store/key_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <vector>

using circuidex::KeyFile;

namespace {

std::string read(const KeyFile &file, std::string_view section, std::string_view key)
{
    return std::string(file.value(section, key).value_or("(none)"));
}

struct ReadCase {
    const char *name, *file, *section, *key, *expected;
};

class Reading : public testing::TestWithParam<ReadCase> { };

TEST_P(Reading, FindsValue)
{
    const ReadCase &c = GetParam();
    EXPECT_EQ(read(KeyFile(c.file), c.section, c.key), c.expected);
}

constexpr ReadCase readCases[] = {
    {"Plain", "[a]\r\nk=1\r\n", "a", "k", "1"},
    {"EmptyFile", "", "a", "k", "(none)"},
    {"MissingKey", "[a]\r\nk=1\r\n", "a", "j", "(none)"},
    {"MissingSection", "[a]\r\nk=1\r\n", "b", "k", "(none)"},
    {"EmptyValue", "[a]\r\nk=\r\n", "a", "k", ""},
    {"OtherCase", "[gp]\r\nNom7=x\r\n", "GP", "nOM7", "x"},
    {"AccentInOtherCase", "[\xC9t\xE9]\r\n\x9Cuf\xFF=x\r\n", "\xE9T\xC9", "\x8CUF\x9F", "x"},
    {"TimesIsNoLetter", "[a]\r\n\xD7=x\r\n", "a", "\xF7", "(none)"},
    {"AccentIsNotItsBaseLetter", "[a]\r\nBr\xE9sil=x\r\n", "a", "Bresil", "(none)"},
    {"LineFeedEnds", "[a]\nk=1\nj=2", "a", "j", "2"},
    {"ReturnEnds", "[a]\rk=1\rj=2\r", "a", "j", "2"},
    {"MixedEnds", "[a]\nk=1\r\n\rj=2\n\r", "a", "j", "2"},
    {"BlanksAround", "  [ a ]  \r\n\tk \t=  v w \t\r\n", "a", " k ", "v w"},
    {"OnePairOfQuotes", "[a]\r\nk=\"\"v\"\"\r\n", "a", "k", "\"v\""},
    {"SingleQuotes", "[a]\r\nk=' v '\r\n", "a", "k", " v "},
    {"UnlikeQuotesStay", "[a]\r\nk=\"v'\r\n", "a", "k", "\"v'"},
    {"OneQuoteAlone", "[a]\r\nk=\"\r\n", "a", "k", "\""},
    {"EqualsInValue", "[a]\r\nk=a=b\r\n", "a", "k", "a=b"},
    {"SemicolonInValue", "[a]\r\nk=a ; b\r\n", "a", "k", "a ; b"},
    {"FirstOfTwoKeys", "[a]\r\nk=1\r\nK=2\r\n", "a", "k", "1"},
    {"FirstOfTwoSections", "[a]\r\nk=1\r\n[b]\r\n[A]\r\nm=2\r\n", "a", "m", "(none)"},
    {"TextBehindHeader", "[a] ; c\r\nk=1\r\n", "a", "k", "1"},
    {"HeaderWithoutEnd", "[a]\r\n[b\r\nk=1\r\n", "a", "k", "1"},
    {"BeforeAnySection", "k=1\r\n[a]\r\n", "", "k", "(none)"},
    {"NameWithoutEquals", "[a]\r\nk\r\nk=2\r\n", "a", "k", ""},
    {"EmptyName", "[a]\r\n = v\r\n", "a", "", "v"},
    {"CommentedSection", ";[a]\r\nk=1\r\n", "a", "k", "(none)"},
    {"ByteOrderMark", "\xEF\xBB\xBF[a]\r\nk=1\r\n", "a", "k", "1"},
};

INSTANTIATE_TEST_SUITE_P(KeyFile, Reading, testing::ValuesIn(readCases),
                         [](const auto &each) { return std::string(each.param.name); });

struct WriteCase {
    const char *name, *before, *section, *key, *value, *after;
};

class Writing : public testing::TestWithParam<WriteCase> { };

TEST_P(Writing, TouchesItsLineOnly)
{
    const WriteCase &c = GetParam();
    KeyFile file(c.before);
    EXPECT_EQ(file.set(c.section, c.key, c.value), std::string(c.before) != c.after);
    EXPECT_EQ(file.bytes(), c.after);
    EXPECT_FALSE(file.set(c.section, c.key, c.value)) << "a second write of the same value";
}

constexpr WriteCase writeCases[] = {
    {"FirstKey", "", "a", "k", "1", "[a]\r\nk=1\r\n"},
    {"FirstKeyEmpty", "", "a", "k", "", "[a]\r\nk=\r\n"},
    {"Replace", "[a]\r\nk=1\r\nj=2\r\n", "a", "k", "345", "[a]\r\nk=345\r\nj=2\r\n"},
    {"ReplaceByEmpty", "[a]\r\nk=1\r\nj=2\r\n", "a", "k", "", "[a]\r\nk=\r\nj=2\r\n"},
    {"SameValue", "[a]\r\nk=1", "a", "k", "1", "[a]\r\nk=1"},
    {"QuotesGo", "[a]\r\nk=\"1\"\r\n", "a", "k", "1", "[a]\r\nk=1\r\n"},
    {"CaseOfFileStays", "[A]\r\nK=1\r\n", "a", "k", "2", "[A]\r\nK=2\r\n"},
    {"EndOfSection", "[a]\r\nk=1\r\n[b]\r\nk=2\r\n", "a", "j", "3", "[a]\r\nk=1\r\nj=3\r\n[b]\r\nk=2\r\n"},
    {"BeforeBlankLines", "[a]\r\nk=1\r\n\r\n[b]\r\n", "a", "j", "3", "[a]\r\nk=1\r\nj=3\r\n\r\n[b]\r\n"},
    {"BehindComment", "[a]\r\nk=1\r\n; c\r\n[b]\r\n", "a", "j", "3", "[a]\r\nk=1\r\n; c\r\nj=3\r\n[b]\r\n"},
    {"NewSection", "[a]\r\nk=1\r\n", "b", "k", "2", "[a]\r\nk=1\r\n[b]\r\nk=2\r\n"},
    {"LastLineWithoutEnd", "[a]\r\nk=1", "a", "j", "2", "[a]\r\nk=1\r\nj=2\r\n"},
    {"HeaderWithoutEnd", "[a]\r\nk=1\r\n[b]", "b", "j", "2", "[a]\r\nk=1\r\n[b]\r\nj=2\r\n"},
    {"EmptyLastValue", "[a]\r\nk=", "a", "j", "2", "[a]\r\nk=\r\nj=2\r\n"},
    {"LineFeedsStay", "[a]\nk=1\n", "a", "j", "2", "[a]\nk=1\nj=2\n"},
    {"ReturnsStay", "[a]\rk=1\r", "b", "j", "2", "[a]\rk=1\r[b]\rj=2\r"},
    {"MixedEndsGetBoth", "[a]\nk=1\r\n", "a", "j", "2", "[a]\nk=1\r\nj=2\r\n"},
    {"NameAlone", "[a]\r\nalone  \r\nj=1\r\n", "a", "alone", "2", "[a]\r\nalone=2\r\nj=1\r\n"},
    {"FirstOfTwo", "[a]\r\nk=1\r\nk=2\r\n", "a", "k", "3", "[a]\r\nk=3\r\nk=2\r\n"},
    {"BlankBeforeName", "[a]\r\n  k = 1 \r\n", "a", "k", "2", "[a]\r\n  k =2\r\n"},
    {"BlanksOfValueAreKept", "[a]\r\n", "a", "k", "  v ", "[a]\r\nk=  v \r\n"},
};

INSTANTIATE_TEST_SUITE_P(KeyFile, Writing, testing::ValuesIn(writeCases),
                         [](const auto &each) { return std::string(each.param.name); });

TEST(KeyFileWriting, SectionBeforeAnAppendedOneStillTakesKeys)
{
    KeyFile file("[a]\r\nk=1");
    file.set("b", "k", "2");
    file.set("a", "j", "3");
    EXPECT_EQ(file.bytes(), "[a]\r\nk=1\r\nj=3\r\n[b]\r\nk=2\r\n");
    EXPECT_EQ(read(file, "b", "k"), "2");
}

TEST(KeyFileWriting, ValueMayBeAViewOfTheFileItself)
{
    KeyFile file("[a]\r\nk=held\r\n");
    file.set("b", "copy", *file.value("a", "k"));
    file.set("b", "again", *file.value("b", "copy"));
    EXPECT_EQ(file.bytes(), "[a]\r\nk=held\r\n[b]\r\ncopy=held\r\nagain=held\r\n");
}

// Names that are none in a file: written, never found, and nothing else is lost.
TEST(KeyFileWriting, OddNamesLeaveTheRestReadable)
{
    struct {
        const char *section, *key, *value;
    } const odd[] = {{"a", "x=y", "1"}, {"a", "[n]", "1"}, {"a]b", "k", "1"}, {"a\nb", "k", "1"}, {"a", "k\rj", "1"}};
    for (const auto &c : odd) {
        KeyFile file("[z]\r\nk=1\r\n[a]\r\nk=2\r\n");
        EXPECT_TRUE(file.set(c.section, c.key, c.value));
        EXPECT_EQ(read(file, c.section, c.key), "(none)") << c.section << c.key;
        EXPECT_EQ(read(file, "z", "k") + read(file, "a", "k"), "12") << c.section << c.key;
        EXPECT_TRUE(file.set("z", "j", "3"));
        EXPECT_EQ(read(KeyFile(file.bytes()), "z", "j"), "3") << c.section << c.key;
    }
}

// The same rules written down a second time, without an index: every call goes through all lines.
namespace reference {

std::string fold(std::string text)
{
    for (char &c : text) {
        const unsigned u = static_cast<unsigned char>(c);
        if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7))
            c = static_cast<char>(u + 0x20);
    }
    return text;
}

std::string trim(const std::string &text)
{
    const auto first = text.find_first_not_of(" \t");
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

struct File {
    std::vector<std::string> lines; // all with CR LF

    bool isHeader(const std::string &line) const { return trim(line)[0] == '[' && line.find(']') != line.npos; }
    std::string title(const std::string &line) const
    {
        const std::string text = trim(line);
        return fold(trim(text.substr(1, text.find(']') - 1)));
    }
    std::string key(const std::string &line) const { return fold(trim(line.substr(0, line.find('=')))); }

    // The lines of the first section of that name, behind its header.
    std::pair<std::size_t, std::size_t> range(const std::string &section) const
    {
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (isHeader(lines[i]) && title(lines[i]) == fold(section)) {
                std::size_t end = i + 1;
                while (end < lines.size() && !isHeader(lines[end]))
                    ++end;
                return {i + 1, end};
            }
        return {0, 0};
    }
    std::string read(const std::string &section, const std::string &wanted) const
    {
        for (auto [i, end] = range(section); i < end; ++i)
            if (!trim(lines[i]).empty() && key(lines[i]) == fold(wanted))
                return lines[i].find('=') == std::string::npos ? "" : trim(lines[i].substr(lines[i].find('=') + 1));
        return "(none)";
    }
    void write(const std::string &section, const std::string &name, const std::string &value)
    {
        auto [i, end] = range(section);
        if (i == 0) {
            lines.push_back(std::string("[").append(section).append("]"));
            i = end = lines.size();
        }
        std::size_t at = i;
        for (; i < end; ++i) {
            if (trim(lines[i]).empty())
                continue;
            if (key(lines[i]) == fold(name)) {
                const auto equals = lines[i].find('=');
                lines[i] = (equals == std::string::npos ? trim(lines[i]) : lines[i].substr(0, equals)) + "=" + value;
                return;
            }
            at = i + 1;
        }
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), name + "=" + value);
    }
    std::string bytes() const
    {
        std::string all;
        for (const std::string &line : lines)
            all += line + "\r\n";
        return all;
    }
};

}

TEST(KeyFile, AnswersLikeTheReferenceOverRandomReadsAndWrites)
{
    const std::vector<std::string> sections = {"N\xB0", "gp", "podium", "\xC9t\xE9", "a b", "n\xB0", "GP"};
    const std::vector<std::string> names = {"nom1",          "NOM1", "\xE9quipe", "\xC9quipe",
                                            "Br\xE9sil/gp4", "",     "a",         "alone"};
    const std::vector<std::string> odds = {"[gp]", "  [ a b ] x", "",     "  ", "; note", "alone",
                                           "a=1",  " NOM1 = v  ", "[open"};
    std::mt19937 random(20052005);
    const auto pick = [&random](const auto &from) { return from[random() % from.size()]; };
    for (int round = 0; round < 300; ++round) {
        reference::File expected;
        for (auto i = random() % 12; i > 0; --i)
            expected.lines.push_back(pick(odds));
        KeyFile file(expected.bytes());
        for (int step = 0; step < 60; ++step) {
            const std::string section = pick(sections), name = pick(names);
            if (random() % 2) {
                const std::string value(random() % 9, static_cast<char>('a' + step % 26));
                expected.write(section, name, value);
                file.set(section, name, value);
            }
            ASSERT_EQ(read(file, section, name), expected.read(section, name)) << section << " " << name;
            ASSERT_EQ(file.bytes(), expected.bytes());
        }
        const KeyFile again(file.bytes());
        for (const std::string &section : sections)
            for (const std::string &name : names)
                ASSERT_EQ(read(again, section, name), read(file, section, name));
    }
}

TEST(KeyFile, RandomBytesNeverHarm)
{
    std::mt19937 random(77);
    const std::string signs = "[]= \t\r\n;\"'ak\xE9\0"; // those that mean something, often
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 200, ' ');
        for (char &c : bytes)
            c = random() % 4 ? signs[random() % signs.size()] : static_cast<char>(random() & 0xFF);
        KeyFile file(bytes);
        const std::string name(bytes.substr(0, random() % 8));
        file.set(name, name, bytes.substr(0, random() % 20));
        file.set("a", "k", "kept");
        ASSERT_EQ(read(file, "a", "k"), "kept");
        ASSERT_EQ(read(KeyFile(file.bytes()), "a", "k"), "kept");
        ASSERT_EQ(KeyFile(bytes).bytes(), bytes);
    }
}

// Files made to be slow: each takes well under a second when the time grows with the size alone.
struct HostileCase {
    const char *name;
    std::string (*make)();
};

std::string repeated(std::size_t count, std::string (*line)(std::size_t))
{
    std::string all = "[a]\r\n";
    for (std::size_t i = 0; i < count; ++i)
        all += line(i);
    return all;
}

class Hostile : public testing::TestWithParam<HostileCase> { };

TEST_P(Hostile, IsReadAndWrittenInLinearTime)
{
    const std::string bytes = GetParam().make();
    const auto start = std::chrono::steady_clock::now();
    KeyFile file(bytes);
    for (int i = 0; i < 10; ++i)
        file.set("a", std::string("written").append(std::to_string(i)), "v");
    EXPECT_EQ(read(file, "A", "WRITTEN9"), "v");
    EXPECT_EQ(file.bytes().size(), bytes.size() + 10 * std::string("written0=v\r\n").size());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

const HostileCase hostileCases[] = {
    {"TenMegabytesOfKeys",
     [] {
         return repeated(500'000,
                         [](std::size_t i) { return std::string("podium").append(std::to_string(i)) + "=7\r\n"; });
     }},
    {"MillionSections",
     [] {
         return repeated(1'000'000, [](std::size_t i) { return std::string("[").append(std::to_string(i)) + "]\r\n"; });
     }},
    {"MillionTimesTheSameKey", [] { return repeated(1'000'000, [](std::size_t) { return std::string("k=1\r\n"); }); }},
    {"MillionTimesTheSameSection",
     [] { return repeated(1'000'000, [](std::size_t) { return std::string("[a]\r\n"); }); }},
    {"NamesOfEqualLetterSums", // AaBB and BBAa are one to a hash that multiplies by 31
     [] {
         return repeated(1 << 19, [](std::size_t i) {
             std::string name;
             for (int bit = 0; bit < 19; ++bit)
                 name += i >> bit & 1 ? "d~" : "e_";
             return name + "=1\r\n";
         });
     }},
    {"LinesOf100000Characters",
     [] {
         return repeated(100, [](std::size_t i) { return std::to_string(i) + std::string(100'000, '=') + "\r\n"; });
     }},
    {"ReturnsOnly", [] { return "[a]\r\n" + std::string(10'000'000, '\r'); }},
    {"BracketsOnly", [] { return "[a]\r\n" + std::string(5'000'000, '[') + "\r\n"; }},
    {"BlanksOnly", [] { return "[a]\r\n" + std::string(10'000'000, ' ') + "\r\n"; }},
};

INSTANTIATE_TEST_SUITE_P(KeyFile, Hostile, testing::ValuesIn(hostileCases),
                         [](const auto &each) { return std::string(each.param.name); });

}
