// SPDX-License-Identifier: GPL-3.0-or-later
// A file and a sequence of reads and writes, all by the input: after each step the fast key file and the naive one read
// the same and hold the same bytes; and a file read anew from these bytes answers as the one that was written to.
#include "fuzz/agree.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

std::string pick(FuzzedDataProvider &input, std::initializer_list<const char *> usual)
{
    const std::size_t choice = input.ConsumeIntegralInRange<std::size_t>(0, usual.size());
    return choice < usual.size() ? usual.begin()[choice] : input.ConsumeRandomLengthString(12);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    circuidex::fuzz::Pair files(input.ConsumeRandomLengthString(300));
    for (int step = 0; step < 6 && input.remaining_bytes() > 0; ++step) {
        const std::string section = pick(input, {"N\xB0", "n\xB0", "gp", "podium", " GP ", ""});
        const std::string key =
            pick(input, {"nom1", "NOM1", "nbpts7", "podium1Br\xE9sil", "PODIUM1BR\xC9SIL", "", "a b"});
        if (input.ConsumeBool())
            files.write(section, key, pick(input, {"", "7", "  12 ", "\"R\xE4ikk\xF6nen\"", "'", "a=b"}));
        files.read(section, key);
        if (step % 3 == 2)
            circuidex::fuzz::Pair(files.fast.bytes()).read(section, key);
    }
    return 0;
}
