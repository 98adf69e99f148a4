#include "core/lists.h"

namespace zel {

namespace {

char* printTime(char* at, int32_t hour, int32_t minute, int32_t second)
{
    const int32_t time[] = {hour, minute, second};
    return printNumbers(at, Digits::kTwo, ':', time, 3);
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
void readGroups(const ElementReader& in, const char* name, Entry* entries, size_t count, Scan scan)
{
    const char* value = in.value(name);
    if (!value)
        return;
    std::string_view text = value;
    std::string_view group;
    for (size_t i = 0; i < count && takeGroup(text, group); ++i)
        scan(group, entries[i]);
}

} // namespace

char* printPeriods(char* at, const TIME_PERIOD* periods, size_t count)
{
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

char* printCoordinates(char* at, const COORDINATE* coordinates, size_t count)
{
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

void readPeriods(const ElementReader& in, const char* name, TIME_PERIOD* periods, size_t count)
{
    readGroups(in, name, periods, count, [](std::string_view group, TIME_PERIOD& period) {
        if (!scanTime(group, period.StartHour, period.StartMinute, period.StartSecond))
            return;
        if (group.empty() || group.front() != '-')
            return;
        group.remove_prefix(1);
        scanTime(group, period.EndHour, period.EndMinute, period.EndSecond);
    });
}

void readCoordinates(const ElementReader& in, const char* name, COORDINATE* coordinates, size_t count)
{
    readGroups(in, name, coordinates, count, [](std::string_view group, COORDINATE& coordinate) {
        int32_t point[] = {coordinate.X, coordinate.Y};
        scanNumbers(group, ',', point, 2);
        coordinate = {point[0], point[1]};
    });
}

void timeAttribute(const ElementReader& in, const char* name, int32_t& hour, int32_t& minute, int32_t& second)
{
    if (const char* value = in.value(name)) {
        std::string_view text = value;
        scanTime(text, hour, minute, second);
    }
}

} // namespace zel
