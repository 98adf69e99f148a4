// Messages by name, and the two ways between them and bytes.
#include "inspect/message.h"

#include <gtest/gtest.h>

#include "zel_protocol/zel_protocol.h"

namespace {

using namespace inspect;

// What the codec logs of damage is tested elsewhere.
const auto isQuiet = (ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE), true);

int only(const std::string& name)
{
    const std::vector<int> found = findMessages(name);
    EXPECT_EQ(found.size(), 1u) << name;
    return found.empty() ? -1 : found.front();
}

template <class Record>
Record& as(const Message& message)
{
    return *static_cast<Record*>(message.record.get());
}

TEST(MessageNames, FullNamesFindTheirMessageAlone)
{
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index)
        EXPECT_EQ(only(nameOf(index)), index);
}

TEST(MessageNames, PartsFindWhatTheyFit)
{
    EXPECT_EQ(nameOf(only("callpreset")), "PTZ_CONTROL_MESSAGE/PTZ_CMD/callpreset");
    EXPECT_EQ(nameOf(only("live_stream_message/cmd_stream_start")), "LIVE_STREAM_MESSAGE/CMD_STREAM_START");
    EXPECT_EQ(nameOf(only("NvrReplay_PlayJump_MessageAnalysis")), "NVR_REPLAY_MESSAGE/3010");
    EXPECT_EQ(nameOf(only("NVR_REPLAY_3010_PARAM")), "NVR_REPLAY_MESSAGE/3010");
    EXPECT_EQ(findMessages("ALARM_REPORT_HUMANFACE_INFO").size(), 2u);
    EXPECT_EQ(findMessages("PTZ_CONTROL_MESSAGE").size(), 48u);
    EXPECT_TRUE(findMessages("TREAM_MESSAGE").empty());
    EXPECT_TRUE(findMessages("").empty());
}

// The end code, and data that holds a closing root tag.
TEST(Messages, RawDataGoesBothWaysPlainAndEnciphered)
{
    const std::string data("a\0b</XML_ZELMAR>c", 17);
    Message message = makeMessage(only("MEDIA_DATA_MESSAGE/3"), ZEL_KIND_REQUEST);
    as<MEDIA_DATA_3_PARAM>(message).DataLen = static_cast<std::int32_t>(data.size());
    message.rawData = data;
    for (const int mode : {-1, 0, 1}) {
        Cipher cipher;
        cipher.mode = mode;
        cipher.key = ZEL_PLATFORM_KEY{{1, 2, 3}};
        const Composed composed = compose(message, cipher);
        ASSERT_EQ(composed.status, 0) << composed.problem;
        const Analysed analysed = analyse(std::string_view(composed.bytes).substr(8), cipher);
        ASSERT_EQ(analysed.status, 0) << mode;
        EXPECT_EQ(analysed.message.rawData, data);
        EXPECT_EQ(std::string(as<MEDIA_DATA_3_PARAM>(analysed.message).pData, data.size()), data);
    }
    Cipher cipher;
    cipher.mode = 1;
    cipher.key = ZEL_PLATFORM_KEY{{1}};
    const Composed composed = compose(message, cipher);
    cipher.key = ZEL_PLATFORM_KEY{{2}};
    EXPECT_EQ(analyse(std::string_view(composed.bytes).substr(8), cipher).status, ZEL_ERR_CODEC);
    message.rawData.pop_back();
    Cipher plain;
    EXPECT_EQ(compose(message, plain).status, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(compose(message, plain).problem, "the record announces 17 bytes of raw data, and there are 16");
}

TEST(Messages, ExtensionsHangOnTheirRecord)
{
    Message face = makeMessage(only("ALARM_REPORT_MESSAGE/CMD_REPORT_ALARM/38"), ZEL_KIND_REQUEST);
    auto& info = *static_cast<ALARM_REPORT_HUMANFACE_INFO*>(face.extension());
    info.Age = 44;
    info.AlgVer = 1;
    face.rawData.assign(512, '\7');
    Cipher plain;
    const Composed composed = compose(face, plain);
    ASSERT_EQ(composed.status, 0) << composed.problem;
    Analysed analysed = analyse(std::string_view(composed.bytes).substr(8), plain);
    EXPECT_EQ(nameOf(analysed.message.index), "ALARM_REPORT_MESSAGE/CMD_REPORT_ALARM/38");
    const auto& read = *static_cast<const ALARM_REPORT_HUMANFACE_INFO*>(analysed.message.extension());
    EXPECT_EQ(read.Age, 44);
    EXPECT_EQ(analysed.message.rawData, face.rawData);
    EXPECT_EQ(featuresOf(analysed.message), face.rawData);
    analysed.message.rawData.clear();
    EXPECT_EQ(compose(analysed.message, plain).bytes, composed.bytes);
}

TEST(Messages, DamageIsAStatus)
{
    Cipher plain;
    EXPECT_EQ(analyse("", plain).status, ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(analyse("<XML_ZELMAR>", plain).status, ZEL_ERR_NO_ENVELOPE);
    const Analysed unknown = analyse("<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"NEW\" Msg_code=\"7\"/>"
                                     "<MESSAGE_BODY/></XML_ZELMAR>and more",
                                     plain);
    EXPECT_EQ(unknown.status, ZEL_ERR_UNKNOWN_MSG);
    EXPECT_EQ(unknown.message.index, -1);
    EXPECT_EQ(textOf(unknown.message.header.Msg_type), "NEW");
    EXPECT_EQ(unknown.message.rawData, "and more");
    Cipher cipher;
    cipher.mode = 0;
    EXPECT_EQ(analyse("no cipher's text", cipher).status, ZEL_ERR_CODEC);
}

} // namespace
