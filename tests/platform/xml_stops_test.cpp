/* Stage one of the XML reader, in the form that this build has, byte by byte. */
#include "xml_stops.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace zelxml;

bool isStop(char c)
{
    const bool isName = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                        c == '_' || c == ':' || c == '-' || c == '.' ||
                        (static_cast<unsigned char>(c) & 0x80) != 0;
    return !isName;
}

/* The zero bytes that every text of the reader has behind it. */
std::string padded(std::string text)
{
    return text + std::string(kBlock, '\0');
}

std::string randomText(std::mt19937& random, std::size_t size, const std::string& letters)
{
    std::string text;
    while (text.size() < size)
        text += letters.empty() ? static_cast<char>(random()) : letters[random() % letters.size()];
    return text;
}

} // namespace

TEST(XmlStops, EveryByteAtEveryPlaceOfABlock)
{
    for (int c = 0; c < 256; ++c) {
        for (const char around : {'a', '"', '\xFF'}) {
            for (std::size_t at = 0; at < kBlock; ++at) {
                std::string block(kBlock, around);
                block[at] = static_cast<char>(c);
                std::uint64_t expected = 0;
                for (std::size_t i = 0; i < kBlock; ++i)
                    expected |= static_cast<std::uint64_t>(isStop(block[i])) << i;
                ASSERT_EQ(expected, stopsOf(block.data())) << c << " at " << at;

                if (c >= 0x80 || around == '\xFF')
                    continue;
                const std::string text = padded(block);
                char* const begin = const_cast<char*>(text.data());
                const char one = static_cast<char>(c);
                ASSERT_EQ(begin + text.find_first_of(std::string{one, '\0'}), findEither(begin, one, one))
                    << c;
                ASSERT_EQ(begin + text.find_first_of(std::string{one, around, '\0'}),
                          findEither(begin, around, one))
                    << c;
            }
        }
    }
}

TEST(XmlStops, SignsAreCountedInTextsOfAnySize)
{
    std::mt19937 random(11);
    std::vector<std::size_t> sizes = {4079, 4080, 4081, 8160, 20000};
    for (std::size_t size = 0; size < 200; ++size)
        sizes.push_back(size);
    for (const std::size_t size : sizes) {
        for (const char* letters : {"<", "=", "<=", "<=\xBC\xBD;>", ""}) {
            const std::string text = randomText(random, size, letters);
            const std::vector<char> exact(text.begin(), text.end());
            const Signs signs = count(exact.data(), exact.size());
            EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '<')), signs.openings);
            EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '=')), signs.equals);
        }
    }
}

TEST(XmlStops, TheListHasEachRunOnceHoweverItIsWalked)
{
    std::mt19937 random(12);
    for (const char* letters : {"a", "\"", "a\"", "aaaaaaa=\"\n", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\"", ""}) {
        for (const std::size_t size : {1U, 63U, 64U, 65U, 1023U, 1024U, 1025U, 5000U}) {
            const std::string text = padded(randomText(random, size, letters));
            std::vector<std::uint32_t> runs;
            for (std::uint32_t i = 0; i < size; ++i) {
                if (isStop(text[i]) && (i == 0 || !isStop(text[i - 1])))
                    runs.push_back(i);
            }
            for (const std::uint32_t step : {1U, 7U, 700U, 3000U}) {
                Stops stops(text.data(), static_cast<std::uint32_t>(size));
                const std::uint32_t* at = stops.begin();
                for (std::uint32_t place = 0; place < size; place += step) {
                    /* Stage two asks from bytes that no run goes through. */
                    if (isStop(text[place]) && (place == 0 || isStop(text[place - 1])))
                        continue;
                    at = stops.from(at, place);
                    const auto expected = std::lower_bound(runs.begin(), runs.end(), place);
                    ASSERT_EQ(expected == runs.end() ? size : *expected, *at)
                        << letters << ' ' << size << ' ' << place;
                }
            }
        }
    }
}
