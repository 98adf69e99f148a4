#include "core/lists.h"

#include "core/scan.h"
#include "core/text_writer.h"

namespace zel {

namespace {

char* printTime(char* at, int32_t hour, int32_t minute, int32_t second)
{
    at = printTwoDigits(at, hour);
    *at++ = ':';
    at = printTwoDigits(at, minute);
    *at++ = ':';
    return printTwoDigits(at, second);
}

bool scanTime(std::string_view& text, int32_t& hour, int32_t& minute, int32_t& second)
{
    int32_t time[] = {hour, minute, second};
    const bool whole = scanNumbers(text, ':', time, 3) == 3;
    hour = time[0];
    minute = time[1];
    second = time[2];
    return whole;
}

// Takes what stands between the next brackets, and the text up to behind them.
bool takeGroup(std::string_view& text, std::string_view& group)
{
    constexpr size_t kLongestGroup = 32;
    // A step or two to the bracket, a group of a few bytes: no work for a search function.
    const auto place = [text](size_t from, char bracket) {
        while (from < text.size() && text[from] != bracket)
            ++from;
        return from;
    };
    const size_t open = place(0, '[');
    const size_t close = place(open + 1, ']');
    if (close >= text.size())
        return false;
    const size_t length = close - open - 1;
    group = {text.data() + open + 1, length < kLongestGroup ? length : kLongestGroup};
    text.remove_prefix(close + 1);
    return true;
}

template <class Entry, class Scan>
void scanGroups(std::string_view text, void* entries, size_t count, Scan scan)
{
    auto* const all = static_cast<Entry*>(entries);
    std::string_view group;
    for (size_t i = 0; i < count && takeGroup(text, group); ++i)
        scan(group, all[i]);
}

char* printPeriods(char* at, const void* items, size_t count)
{
    const auto* const periods = static_cast<const TIME_PERIOD*>(items);
    for (size_t i = 0; i < count; ++i) {
        const TIME_PERIOD& period = periods[i];
        *at++ = '[';
        at = printTime(at, period.StartHour, period.StartMinute, period.StartSecond);
        *at++ = '-';
        at = printTime(at, period.EndHour, period.EndMinute, period.EndSecond);
        *at++ = ']';
        *at++ = ',';
    }
    return at;
}

void scanPeriods(std::string_view text, void* periods, size_t count)
{
    scanGroups<TIME_PERIOD>(text, periods, count, [](std::string_view group, TIME_PERIOD& period) {
        if (!scanTime(group, period.StartHour, period.StartMinute, period.StartSecond))
            return;
        if (group.empty() || group.front() != '-')
            return;
        group.remove_prefix(1);
        scanTime(group, period.EndHour, period.EndMinute, period.EndSecond);
    });
}

char* printCutPeriods(char* at, const void* items, size_t count)
{
    constexpr std::ptrdiff_t kLongestText = 255;
    char* const end = printPeriods(at, items, count);
    return end - at < kLongestText ? end : at + kLongestText;
}

char* printCoordinates(char* at, const void* items, size_t count)
{
    const auto* const coordinates = static_cast<const COORDINATE*>(items);
    for (size_t i = 0; i < count; ++i) {
        *at++ = '[';
        at = printNumber(at, coordinates[i].X);
        *at++ = ',';
        at = printNumber(at, coordinates[i].Y);
        *at++ = ']';
        *at++ = ',';
    }
    return at;
}

void scanCoordinates(std::string_view text, void* coordinates, size_t count)
{
    scanGroups<COORDINATE>(text, coordinates, count, [](std::string_view group, COORDINATE& coordinate) {
        int32_t point[] = {coordinate.X, coordinate.Y};
        scanNumbers(group, ',', point, 2);
        coordinate = {point[0], point[1]};
    });
}

char* printList(char* at, const void* items, size_t count)
{
    const auto* const numbers = static_cast<const int32_t*>(items);
    for (size_t i = 0; i < count; ++i) {
        at = printNumber(at, numbers[i]);
        *at++ = ',';
    }
    return at;
}

char* printJoinedList(char* at, const void* items, size_t count)
{
    return count == 0 ? at : printList(at, items, count) - 1;
}

void scanList(std::string_view text, void* items, size_t count)
{
    auto* const numbers = static_cast<int32_t*>(items);
    for (size_t i = 0; i < count; ++i) {
        const size_t begin = text.find_first_not_of(',');
        if (begin == std::string_view::npos)
            return;
        text.remove_prefix(begin);
        const std::string_view piece = partOf(text, 0, text.find(','));
        numbers[i] = numberOf(piece);
        text.remove_prefix(piece.size());
    }
}

constexpr size_t kLongestPeriod = sizeof("[::-::],") - 1 + 6 * kLongestNumber;
constexpr size_t kLongestCoordinate = sizeof("[,],") - 1 + 2 * kLongestNumber;
static_assert(kPeriods * kLongestPeriod <= kLongestValue &&
              kCoordinates * kLongestCoordinate <= kLongestValue);

constexpr ValueForm kPeriodList = {ZEL_FORM_PERIODS, kLongestPeriod, printPeriods, scanPeriods};
constexpr ValueForm kCutPeriodList = {ZEL_FORM_PERIODS, kLongestPeriod, printCutPeriods, scanPeriods};
constexpr ValueForm kCoordinateList = {ZEL_FORM_COORDINATES, kLongestCoordinate, printCoordinates,
                                       scanCoordinates};
constexpr ValueForm kList = {ZEL_FORM_LIST, kLongestNumber + 1, printList, scanList};
constexpr ValueForm kJoinedList = {ZEL_FORM_JOINED_LIST, kLongestNumber + 1, printJoinedList, scanList};

} // namespace

void periodListAttribute(Side& side, Name name, TIME_PERIOD (&periods)[kPeriods], uint32_t count)
{
    valueAttribute(side, name, kPeriodList, periods, sizeof periods, clampCount(count, kPeriods));
}

void cutPeriodListAttribute(Side& side, Name name, TIME_PERIOD (&periods)[kPeriods], uint32_t count)
{
    valueAttribute(side, name, kCutPeriodList, periods, sizeof periods, clampCount(count, kPeriods));
}

void coordinateListAttribute(Side& side, Name name, COORDINATE (&coordinates)[kCoordinates], uint32_t count)
{
    valueAttribute(side, name, kCoordinateList, coordinates, sizeof coordinates,
                   clampCount(count, kCoordinates));
}

void periodAttributes(Side& side, Name startName, Name endName, TIME_PERIOD& period)
{
    // Three numbers lie side by side, twice.
    static_assert(sizeof(TIME_PERIOD) == 6 * sizeof(int32_t));
    constexpr size_t kHalf = sizeof period / 2;
    valueAttribute(side, startName, kClock, &period.StartHour, kHalf, 3);
    valueAttribute(side, endName, kClock, &period.EndHour, kHalf, 3);
}

void listAttribute(Side& side, Name name, int32_t* numbers, size_t size, size_t count)
{
    valueAttribute(side, name, kList, numbers, size * sizeof *numbers, side.writes() ? count : size);
}

void joinedListAttribute(Side& side, Name name, int32_t* numbers, size_t size, size_t count)
{
    valueAttribute(side, name, kJoinedList, numbers, size * sizeof *numbers, side.writes() ? count : size);
}

} // namespace zel
