#pragma once
// The small release that the tests read: twelve seasons in the shape of F1DB's own.
#include "publicdata/reading.h"

#include <gtest/gtest.h>

namespace circuidex::test {

inline const std::string releaseFile = CIRCUIDEX_TESTDATA "/f1db-json-splitted.zip";

inline const publicdata::Data &release()
{
    static const publicdata::ReadData read = publicdata::readPublicData(releaseFile);
    EXPECT_EQ(read.refusal, "");
    return read.data;
}

inline const int years[] = {1957, 1958, 1988, 1991, 1997, 2003, 2004, 2005, 2006, 2010, 2016, 2024};

}
