// What the tests of the configuration's messages share.
#ifndef ZEL_TESTS_CONFIG_CONFIG_MESSAGE_H
#define ZEL_TESTS_CONFIG_CONFIG_MESSAGE_H

#include "support/wire.h"

namespace test {

inline const std::string kConfig = "SYSTEM_CONFIG_GET_MESSAGE";

// A document in short whose blanks stand for line feeds, however many.
inline std::string inLines(const std::string& document)
{
    std::string text;
    for (const std::string& line : split(document))
        text += line + "|";
    return text;
}

// A text with one part exchanged.
inline std::string with(std::string text, const std::string& part, const std::string& instead)
{
    const size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), instead);
}

// What the attributes of that name say, in the order of the text.
inline std::vector<std::string> valuesOf(const std::string& text, const std::string& name)
{
    std::vector<std::string> values;
    const std::string start = name + "=\"";
    for (size_t at = 0; (at = text.find(start, at)) != std::string::npos;) {
        at += start.size();
        values.push_back(text.substr(at, text.find('"', at) - at));
    }
    return values;
}

// Counts up through fields of one width that stand in a row.
template <class T>
void countUp(T& first, const T& last, int from)
{
    for (T* field = &first; field <= &last; ++field)
        *field = static_cast<T>(from++);
}

// Minute and second follow each other.
inline void setTime(int32_t (&time)[3], int32_t hour, int32_t minute)
{
    time[0] = hour;
    time[1] = minute;
    time[2] = minute + 1;
}

// Fills text fields up to their terminators.
template <size_t... N>
void fill(char (&... fields)[N])
{
    (set(fields, std::string(N - 1, '~')), ...);
}

// Composes filled fields, makes each value one longer than its field can take and expects them cut again.
template <class Record>
void expectCut(const std::string& code, int kind, const Record& written, const Record& read)
{
    std::string text = bodyOf(kConfig, code, &written, kind);
    for (size_t at = 0; (at = text.find_first_not_of('~', text.find('~', at))) != std::string::npos;)
        text.insert(at++, 1, '~');
    expectRead(kConfig, code, text, read);
}

template <class Record>
void expectCut(const std::string& code, int kind, const Record& record)
{
    expectCut(code, kind, record, record);
}

struct Leaf
{
    const char* code;
    const char* operation;
    const char* missing;
};

// What each leaf says of a body that lacks what it can't do without.
inline void expectRequired(const std::vector<Leaf>& leaves)
{
    resetServices();
    for (const Leaf& leaf : leaves) {
        EXPECT_EQ(analyseBody(kConfig, leaf.code, "<Other/>").result, ZEL_ERR_NO_ELEMENT) << leaf.code;
        EXPECT_TRUE(loggedOnly(std::string("SystemConfig_") + leaf.operation + "_MessageAnalysis get " +
                               leaf.missing + " error\n"))
            << leaf.code;
    }
}

} // namespace test

#endif
