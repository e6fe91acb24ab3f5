#include "src/core/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

std::string Printed(double value, int decimals) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

TEST(NumberFormat, AgreesWithPrintfAndAtof) {
    std::mt19937_64 random(20030409);
    std::uniform_real_distribution<double> exponent(-6.0, 7.0);
    for (int i = 0; i < 20000; ++i) {
        double value = std::pow(10.0, exponent(random)) * (i % 4 == 0 ? -1.0 : 1.0);
        if (i % 3 == 0) {
            value = std::round(value * 2000.0) / 2000.0;  // at and near half a thousandth
        }
        for (int decimals : {0, 1, 3}) {
            const std::string printed = Printed(value, decimals);
            ASSERT_EQ(FormatFixed(value, decimals), printed) << value;
            ASSERT_EQ(RoundAsPrinted(value, decimals), std::atof(printed.c_str())) << value;
        }
    }
    for (double value : {0.0, -0.0, -0.0004, 0.0005, 0.0015, 2.5, 1e300}) {
        EXPECT_EQ(FormatFixed(value, 3), Printed(value, 3));
    }
}

TEST(NumberFormat, Round3GivesTheFloatOfThePrintedText) {
    EXPECT_EQ(Round3(100.0 / 3.0), 33.333F);
    EXPECT_EQ(Round3(12.4996), 12.5F);
    EXPECT_EQ(Round3(0.08 * 0.08 / (0.02 * 0.3)), 1.067F);
}

TEST(NumberFormat, ResultValuesLoseDecimalsAsTheyGrow) {
    const std::tuple<double, ResultValueMode, const char*> cases[] = {
        {0.0862, kDiameterValue, "0.086"},   {0.999, kDiameterValue, "0.999"},
        {1.25, kDiameterValue, "1.25"},      {9.999, kDiameterValue, "10.00"},
        {9.9991, kDiameterValue, "10.0"},    {12.5, kDiameterValue, "12.5"},
        {99.9995, kDiameterValue, "100"},    {150.0, kDiameterValue, "150"},
        {0.0, kDiameterValue, "0.000"},      {-1.0, kDiameterValue, ""},
        {9.999, kCoefficientValue, "9.999"}, {9.9994, kCoefficientValue, "10.00"},
        {15.0, kCoefficientValue, "15.00"},  {123.45, kCoefficientValue, "123.5"},
        {999.9, kCoefficientValue, "999.9"}, {1000.4, kCoefficientValue, "1000"},
        {99.95, kCoefficientValue, "99.95"}, {-0.0001, kCoefficientValue, ""},
    };
    for (const auto& [value, mode, text] : cases) {
        EXPECT_EQ(FormatResultValue(value, mode), text) << value;
    }
}

TEST(NumberFormat, SizeLabelsHaveNoTrailingZeros) {
    const std::pair<double, const char*> cases[] = {
        {60, "60"},     {200, "200"},       {2.0, "2"},          {0.075, "0.075"},
        {0.25, "0.25"}, {0.0025, "0.0025"}, {0.00125, "0.0013"}, {0.00004, "0"},
        {0.0, "0"},     {1000, "1000"},     {10.10, "10.1"}};
    for (const auto& [size, label] : cases) {
        EXPECT_EQ(FormatSizeLabel(size), label);
    }
}

}  // namespace
