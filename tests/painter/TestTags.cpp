// Groups of a record by code, and the numbers in them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "apps/painter/Tags.h"

namespace {

double RealOf(const std::string& text) {
    return painter::RealOf({.code = 10, .format = dxf::Format::Ascii, .value = text});
}

TEST(Tags, RealsAreTheNearestNumbersHoweverTheyAreWritten) {
    std::mt19937_64 random(11);
    char text[64];
    for (int i = 0; i < 20000; ++i) {
        const auto digits = static_cast<double>(random() % 10'000'000'000'000'000ULL);
        const double value = (i % 2 ? -1 : 1) * digits / std::pow(10.0, double(random() % 17));
        const char* formats[] = {"%.6f", "%.16g", "%.0f", "%.3f", "%.15f", "%e"};
        std::snprintf(text, sizeof text, formats[i % 6], value);
        const double whole = std::strtod(text, nullptr);
        ASSERT_EQ(RealOf(text), std::abs(whole) < 1e15 ? whole : 0) << text;
    }
    const std::pair<const char*, double> cases[] = {
        {"", 0},        {".", 0},      {"-", 0},       {"-.5", -0.5}, {"5.", 5},  {"+2.5", 2.5},
        {" 1.5 ", 1.5}, {"1.5x", 1.5}, {"1.2.3", 1.2}, {"x", 0},      {"nan", 0}, {"1e400", 0},
    };
    for (const auto& [written, value] : cases) EXPECT_EQ(RealOf(written), value) << written;
}

TEST(Tags, AreThoseOfTheRecordThatWasReadLast) {
    const auto store = dxf::Store::Parse(
        "0\nSECTION\n2\nENTITIES\n"
        "0\nLINE\n8\nA\n10\n1\n10\n2\n420\n3\n999\nno\n102\n{X\n62\n7\n102\n}\n1001\nX\n1040\n1\n"
        "0\nTEXT\n8\nA\n40\n5\n-5\n9\n101\nEmbedded Object\n41\n6\n"
        "0\nENDSEC\n0\nEOF\n");
    painter::Tags tags;
    tags.Read(*store, 1);
    EXPECT_EQ(tags.Raw(0), "LINE");
    EXPECT_EQ(tags.Real(10), 1) << "the first of its code";
    EXPECT_EQ(tags.Int(420), 3);
    for (const int code : {40, 62, 102, 999, 1001, 1040}) EXPECT_FALSE(tags.Has(code)) << code;
    tags.Read(*store, 2);
    EXPECT_EQ(tags.Raw(0), "TEXT");
    EXPECT_EQ(tags.Real(40), 5);
    EXPECT_EQ(tags.Int(-5), 9);
    for (const int code : {10, 420, 41}) EXPECT_FALSE(tags.Has(code)) << code;
    tags.ReadEmbedded(*store, 2);
    EXPECT_EQ(tags.Real(41), 6);
    EXPECT_FALSE(tags.Has(40));
}

}  // namespace
