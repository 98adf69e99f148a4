// Commands as texts: what the tests of this folder expect, compose and analyse.
#ifndef ZEL_TESTS_PTZ_PTZ_WIRE_H
#define ZEL_TESTS_PTZ_PTZ_WIRE_H

#include <tuple>

#include "support/wire.h"

namespace test {

using PtzRecord = PTZ_CONTROL_PTZ_CMD_PARAM;

inline const std::string kPtz = "PTZ_CONTROL_MESSAGE";
inline const std::string kChannel3 = "<channelid>3</channelid>|";

inline PtzRecord recordOf(const std::string& word, int32_t channel = -1, void* extension = nullptr)
{
    auto record = fresh(PTZ_CONTROL_PTZ_CMD_PARAM_init);
    record.channelid = channel;
    set(record.cmd, word);
    record.pExData = extension;
    return record;
}

// The body, or the status in words.
inline std::string body(const PtzRecord& record, int kind)
{
    std::vector<char> out(65536);
    const int status = PtzControlMessageCompose(&record, kind, out.data(), static_cast<int>(out.size()));
    return status == 0 ? out.data() : std::to_string(status);
}

inline Analysed received(const std::string& body)
{
    return analyseBody(kPtz, "PTZ_CMD", body);
}

// Composes each kind; both texts in short.
inline void expectPtz(const PtzRecord& record, const std::string& request, const std::string& response)
{
    for (const int kind : {0, 1, 2, 3})
        EXPECT_EQ(body(record, kind), wire(kind % 2 == 0 ? request : response)) << record.cmd << kind;
}

// A command in its element, and what else stands there.
inline std::string xmlOf(const std::string& word, const std::string& elements = "")
{
    return "<xml>|<cmd>" + word + "</cmd>|" + elements + "</xml>|";
}

template <class Extension>
bool isSame(const Extension& a, const Extension& b)
{
    return memcmp(&a, &b, sizeof a) == 0;
}

// Those with gaps between fields.
inline bool isSame(const PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM& a,
                   const PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM& b)
{
    return std::tie(a.status, a.track_time_enable, a.time_min, a.time_max, a.time_step, a.time_now) ==
           std::tie(b.status, b.track_time_enable, b.time_min, b.time_max, b.time_step, b.time_now);
}

inline bool isSame(const PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM& a,
                   const PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM& b)
{
    return std::tie(a.status, a.left_top_x, a.left_top_y, a.right_down_x, a.right_down_y, a.width,
                    a.height) ==
           std::tie(b.status, b.left_top_x, b.left_top_y, b.right_down_x, b.right_down_y, b.width, b.height);
}

inline bool isSame(const PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM& a,
                   const PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM& b)
{
    return a.line_max == b.line_max &&
           std::equal(std::begin(a.stLine), std::end(a.stLine), std::begin(b.stLine),
                      [](const PTZ_CONTROL_LOCUS_LINE& one, const PTZ_CONTROL_LOCUS_LINE& other) {
                          return std::tie(one.iLocusValue0, one.ucLocusValue1, one.ucLocusValue2) ==
                                 std::tie(other.iLocusValue0, other.ucLocusValue1, other.ucLocusValue2);
                      });
}

// Reads a body, given in short, into a record without an extension.
inline void expectPtzRead(const std::string& text, int32_t channel, const std::string& cmd)
{
    const Analysed analysed = received(text);
    ASSERT_EQ(analysed.result, 0) << text;
    EXPECT_EQ(analysed.as<PtzRecord>().channelid, channel) << text;
    EXPECT_EQ(get(analysed.as<PtzRecord>().cmd), cmd) << text;
    EXPECT_EQ(analysed.as<PtzRecord>().pExData, nullptr) << text;
}

// The same with an extension, which lies in the record's own block.
template <class Extension>
void expectPtzRead(const std::string& text, int32_t channel, const std::string& cmd,
                   const Extension& extension)
{
    resetServices();
    const Analysed analysed = received(text);
    ASSERT_EQ(analysed.result, 0) << text;
    EXPECT_EQ(services().blocks, 1) << text;
    const auto& record = analysed.as<PtzRecord>();
    EXPECT_EQ(record.channelid, channel) << text;
    EXPECT_EQ(get(record.cmd), cmd) << text;
    ASSERT_EQ(record.pExData, &record + 1) << text;
    EXPECT_TRUE(isSame(*static_cast<const Extension*>(record.pExData), extension)) << text;
}

inline void expectNeedsExtension(const std::string& words, int kind)
{
    for (const std::string& word : split(words)) {
        resetServices();
        EXPECT_EQ(body(recordOf(word, 3), kind), "-1001") << word;
        EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE deal cmd : " + word + " get the pExData is NULL\n"));
    }
}

// The failures that all analyses of a command share, each text with the function's name.
inline void expectLeafFailures(int (*analysis)(const char*, void**), const std::string& name,
                               const std::string& element = "RESPONSE_PARAM")
{
    const std::string noXml = envelope(kPtz, "PTZ_CMD", "<cmd>up</cmd>");
    void* block = nullptr;
    resetServices();
    EXPECT_EQ(analysis(nullptr, &block), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(analysis("<up", &block), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_EQ(analysis("<up/>", &block), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_EQ(analysis(noXml.c_str(), &block), ZEL_ERR_NO_ELEMENT);
    EXPECT_EQ(services().errors,
              (std::vector<std::string>{name + " put a empty Param\n", name + " Parse MsgBuf error\n",
                                        name + " get MESSAGE_BODY error\n",
                                        name + " get " + element + " error\n"}));
}

} // namespace test

#endif
