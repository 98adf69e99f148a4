// Messages as texts: what the tests expect, compose and analyse. All buffers are exactly as large as stated,
// so that a sanitizer sees one byte too far.
#ifndef ZEL_TESTS_SUPPORT_WIRE_H
#define ZEL_TESTS_SUPPORT_WIRE_H

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/services.h"
#include "zel_protocol/zel_protocol.h"

namespace test {

struct FreeRecord
{
    void operator()(void* record) const
    {
        ZelProtocolMSGAnalysisStop(&record);
    }
};

inline ZEL_PROTOCOL_HEADER headerOf(const std::string& type, const std::string& code)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strncpy(header.Msg_type, type.c_str(), sizeof header.Msg_type - 1);
    strncpy(header.Msg_code, code.c_str(), sizeof header.Msg_code - 1);
    strncpy(header.Msg_flag, "flag", sizeof header.Msg_flag - 1);
    return header;
}

// The envelope of a message as it goes on the wire; body and header attributes with their own line feeds.
inline std::string envelope(const std::string& type, const std::string& code, const std::string& body,
                            const std::string& headerAttributes = "")
{
    return "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<MESSAGE_HEADER\nMsg_type=\"" + type +
           "\"\nMsg_code=\"" + code + "\"\nMsg_flag=\"flag\"\n" +
           (headerAttributes.empty() ? "" : headerAttributes + "\n") + "/>\n<MESSAGE_BODY>\n" +
           (body.empty() ? "" : body + "\n") + "</MESSAGE_BODY>\n</XML_ZELMAR>";
}

struct Composed
{
    int result;
    std::string bytes;  // the frame, or what the buffer holds after a bare text
    std::string text;   // without the head
    uint32_t announced; // the length field
};

inline Composed compose(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind, int outLen = 65536,
                        int mode = -1, void* arg = nullptr)
{
    const auto buffer = std::make_unique<char[]>(static_cast<size_t>(outLen));
    Composed composed{ZelProtocolXMLCompose(&header, record, kind, mode, arg, buffer.get(), outLen), "", "",
                      0};
    if (composed.result > 0)
        composed.bytes.assign(buffer.get(), static_cast<size_t>(std::min(composed.result, outLen)));
    if (composed.bytes.size() > 8) {
        composed.text = composed.bytes.substr(8);
        for (size_t i = 0; i < 4; ++i)
            composed.announced |= static_cast<uint32_t>(static_cast<unsigned char>(composed.bytes[4 + i]))
                                  << (8 * i);
    }
    return composed;
}

struct Analysed
{
    int result = 0;
    ZEL_PROTOCOL_HEADER header{};
    std::unique_ptr<void, FreeRecord> record;
    std::string payload; // as the analysis left it

    template <class Record>
    const Record& as() const
    {
        return *static_cast<const Record*>(record.get());
    }
};

inline Analysed analyse(const std::string& payload, int mode = -1, void* arg = nullptr)
{
    const auto bytes = std::make_unique<char[]>(payload.size());
    memcpy(bytes.get(), payload.data(), payload.size());
    Analysed analysed;
    ZEL_PROTOCOL_HEADER_init(&analysed.header);
    void* record = &analysed;
    analysed.result = ZelProtocolMSGAnalysisStart(bytes.get(), static_cast<int>(payload.size()), mode, arg,
                                                  &analysed.header, &record);
    EXPECT_TRUE(analysed.result >= 0 || record == &analysed) << "a failure left something behind";
    analysed.record.reset(record == &analysed ? nullptr : record);
    analysed.payload.assign(bytes.get(), payload.size());
    return analysed;
}

// A text in short: with ' for a double quote and | for a line feed.
inline std::string wire(std::string text)
{
    std::replace(text.begin(), text.end(), '\'', '"');
    std::replace(text.begin(), text.end(), '|', '\n');
    return text;
}

inline std::vector<std::string> split(const std::string& words)
{
    std::istringstream in(words);
    return {std::istream_iterator<std::string>(in), {}};
}

// An init sets every field, whatever was there.
template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    memset(&record, 0x11, sizeof record);
    EXPECT_EQ(init(&record), 0);
    return record;
}

// What stands between the tags of the body that the entry point composes.
inline std::string bodyOf(const std::string& type, const std::string& code, const void* record, int kind)
{
    const std::string open = "<MESSAGE_BODY>\n";
    const std::string bytes = compose(headerOf(type, code), record, kind).bytes;
    const size_t start = bytes.find(open) + open.size();
    const size_t end = bytes.find("</MESSAGE_BODY>", start);
    return end == std::string::npos ? "(none)" : bytes.substr(start, end - start - (end > start ? 1 : 0));
}

// Composes each kind; both texts in short.
inline void expectBodies(const std::string& type, const std::string& code, const void* record,
                         const std::string& request, const std::string& response)
{
    for (const int kind : {0, 1, 2, 3})
        EXPECT_EQ(bodyOf(type, code, record, kind), wire(kind % 2 == 0 ? request : response)) << code << kind;
}

// Analyses a body, given in short.
inline Analysed analyseBody(const std::string& type, const std::string& code, const std::string& body)
{
    return analyse(envelope(type, code, wire(body)));
}

template <class Record>
void expectRead(const std::string& type, const std::string& code, const std::string& body,
                const Record& expected)
{
    const Analysed analysed = analyseBody(type, code, body);
    ASSERT_EQ(analysed.result, 0) << code << body;
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0) << code << body;
}

// One text, in one direction alone, out and in.
template <class Record>
void expectRequest(const std::string& type, const std::string& code, const Record& record,
                   const std::string& text)
{
    expectBodies(type, code, &record, text, "");
    expectRead(type, code, text, record);
}

template <class Record>
void expectResponse(const std::string& type, const std::string& code, const Record& record,
                    const std::string& text)
{
    expectBodies(type, code, &record, "", text);
    expectRead(type, code, text, record);
}

// Sets a text field; the field may be filled to its last byte.
template <size_t N>
void set(char (&field)[N], const std::string& text)
{
    memset(field, 0, N);
    memcpy(field, text.data(), std::min(N, text.size()));
}

// A field's text, terminated or not.
template <size_t N>
std::string get(const char (&field)[N])
{
    return {field, strnlen(field, N)};
}

} // namespace test

#endif
