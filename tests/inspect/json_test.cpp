// Messages as JSON and back, over the whole catalogue, and what can't be.
#include "inspect/json.h"

#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "inspect/sample.h"
#include "inspect/secrets.h"
#include "zel_protocol/zel_protocol.h"

namespace {

using namespace inspect;

JsonOptions openly()
{
    JsonOptions options;
    options.showSecrets = true;
    return options;
}

Bytes composed(const Message& message)
{
    Cipher plain;
    const Composed result = compose(message, plain);
    EXPECT_EQ(result.status, 0) << nameOf(message.index) << " " << result.problem;
    return result.bytes;
}

int only(const char* name)
{
    const std::vector<int> found = findMessages(name);
    EXPECT_EQ(found.size(), 1u) << name;
    return found.front();
}

template <class T>
T& as(const Message& message)
{
    return *static_cast<T*>(message.record.get());
}

// The problem of a JSON text, or what says that there is none.
std::string problemOf(const std::string& text, const char* name)
{
    try {
        fromJson(parseJson(text), {}, only(name));
        return "none";
    } catch (const JsonError& error) {
        return error.what();
    }
}

// Every message, both ways: as a record that is filled, and as one that came in.
TEST(JsonOfTheCatalogue, ComesBackToTheByte)
{
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index)
        for (const int kind : {ZEL_KIND_REQUEST, ZEL_KIND_RESPONSE}) {
            SCOPED_TRACE(nameOf(index) + " " + std::to_string(kind));
            const Message sample = sampleMessage(index, kind);
            const Bytes bytes = composed(sample);
            const Json json = toJson(sample, openly());
            const Message back = fromJson(parseJson(json.dump()), openly());
            EXPECT_EQ(back.index, index);
            EXPECT_EQ(composed(back), bytes);
            EXPECT_EQ(toJson(back, openly()), json);

            Cipher plain;
            const std::size_t head = sample.entry.is_bare ? 0 : ZEL_FRAME_HEAD_SIZE;
            const Analysed analysed = analyse(std::string_view(bytes).substr(head), plain);
            if (analysed.status == 0 || analysed.isHeaderAlone()) {
                const Json read = toJson(analysed.message, openly());
                const Message again = fromJson(parseJson(read.dump()), openly());
                EXPECT_EQ(toJson(again, openly()), read);
                EXPECT_EQ(composed(again), composed(analysed.message));
            }
        }
}

// --- Fields --------------------------------------------------------------------------------------

std::string recordText(const char* name, const char* record, JsonOptions options = openly())
{
    Json json = {{"record", parseJson(record)}};
    return toJson(fromJson(json, options, only(name)), options)["record"].dump();
}

TEST(JsonFields, AbsentRowsAreLeftOutAtTheEndOnly)
{
    const char* const list = "SYSTEM_CONFIG_GET_MESSAGE/2510";
    EXPECT_EQ(recordText(list, R"({"stAccount":[{},{"Username":"a"},{}],"UserNum":null})"),
              R"({"stAccount":[{},{"Username":"a"}]})");
    EXPECT_EQ(recordText("MEDIA_DATA_MESSAGE/8", R"({"Time":["a",null,"0123456789abcdef"],"DataLen":-1})"),
              R"({"Time":["a",null,"0123456789abcdef"]})");
}

TEST(JsonFields, NumbersAreExact)
{
    Message face = makeMessage(only("ALARM_REPORT_MESSAGE/CMD_REPORT_ALARM/38"), 0);
    setField(face, "SerialNum", "0xFFFFFFFF", {});
    setField(face, "faceQualityScore", "0.1", {});
    setField(face, "HsvAreaScore", "16777217", {});
    setField(face, "BlurSMD", "-nan", {});
    setField(face, "Alarm_absTime", "-2147483648", {});
    const Json json = toJson(face, {});
    EXPECT_EQ(
        json["extension"].dump(),
        R"({"SerialNum":4294967295,"faceQualityScore":0.1,"HsvAreaScore":16777216.0,"BlurSMD":"-nan"})");
    EXPECT_EQ(json["record"]["Alarm_absTime"], -2147483648LL);
    EXPECT_EQ(toJson(fromJson(json, {}), {}), json);
}

TEST(JsonFields, WideNumbersKeepAllTheirBits)
{
    for (const Record& record : records())
        for (const Field& field : record.fields) {
            if (field.type != Type::kUint64 && field.type != Type::kInt64)
                continue;
            std::vector<std::uint8_t> block = record.fresh;
            const std::string number =
                field.type == Type::kUint64 ? "18446744073709551614" : "-9223372036854775807";
            const Json json = parseJson("{\"" + std::string(field.name) + "\":" + number + "}");
            if (field.rows != 0)
                continue;
            recordFromJson(json, record, block.data(), {});
            EXPECT_EQ(recordToJson(record, block.data(), {}), json) << record.name;
        }
}

TEST(JsonFields, SayWhatCannotBe)
{
    const auto problem = [](const char* name, const std::string& record) {
        return problemOf("{\"record\":" + record + "}", name);
    };
    const char* const accounts = "SYSTEM_CONFIG_GET_MESSAGE/2510";
    EXPECT_EQ(problem(accounts, R"({"stAccount":[{},{"Nope":1}]})"),
              "record.stAccount[1].Nope: there is no such field in SYSTEM_CONFIG_ACCOUNT");
    EXPECT_EQ(problem(accounts, R"({"usernum":1})"),
              "record.usernum: there is no such field; it is written UserNum");
    EXPECT_EQ(problem(accounts, R"({"UserNum":2147483648})"),
              "record.UserNum: 2147483648 doesn't fit: -2147483648 to 2147483647");
    EXPECT_EQ(problem(accounts, R"({"UserNum":-2147483649})"),
              "record.UserNum: -2147483649 doesn't fit: -2147483648 to 2147483647");
    EXPECT_EQ(problem(accounts, R"({"UserNum":1.5})"), "record.UserNum: has to be a whole number");
    EXPECT_EQ(problem(accounts, R"({"stAccount":{}})"), "record.stAccount: has to be an array");
    EXPECT_EQ(problem(
                  accounts, "{\"stAccount\":[" +
                                [] {
                                    std::string rows = "{}";
                                    for (int i = 0; i < 40; ++i)
                                        rows += ",{}";
                                    return rows;
                                }() +
                                "]}"),
              "record.stAccount: 41 rows, and there is room for 40");
    EXPECT_EQ(problem(accounts, "{\"stAccount\":[{\"Username\":\"" + std::string(33, 'a') + "\"}]}"),
              "record.stAccount[0].Username: 33 bytes, and the field holds 32");
    EXPECT_EQ(problem(accounts, R"({"stAccount":[{"Username":7}]})"),
              "record.stAccount[0].Username: has to be a text");
    EXPECT_EQ(problem(accounts, R"({"stAccount":[{"Username":"a\u0000b"}]})"),
              "record.stAccount[0].Username: has a zero byte, which would end it");
    EXPECT_EQ(problem(accounts, "[]"), "record: has to be an object");
    EXPECT_EQ(problem("MEDIA_DATA_MESSAGE/1", R"({"pData":"x"})"),
              "record.pData: is a pointer; what hangs on it is the message's \"extension\" or \"data\"");
    const std::string unsignedProblem =
        problemOf(R"({"record":{},"extension":{"Age":-1}})", "CMD_REPORT_ALARM/38");
    EXPECT_EQ(unsignedProblem, "extension.Age: -1 doesn't fit: 0 to 255");
}

TEST(JsonMessages, SayWhatCannotBe)
{
    const char* const jump = "NVR_REPLAY_MESSAGE/3010";
    EXPECT_EQ(problemOf(R"({"ChannelId":1})", jump),
              "ChannelId: there is no such part of a message; fields stand in \"record\"");
    EXPECT_EQ(problemOf("[1]", jump), "a message has to be an object");
    EXPECT_EQ(problemOf(R"({"kind":"answer"})", jump),
              "kind: answer isn't request, response, other-request, other-response or 0 to 3");
    EXPECT_EQ(problemOf(R"({"extension":{}})", jump), "extension: this message has none");
    EXPECT_EQ(problemOf(R"({"data":"a"})", jump), "data: isn't base64");
    EXPECT_EQ(problemOf(R"({"charset":"latin1"})", jump), "charset: has to be utf-8 or gb2312");
    EXPECT_EQ(problemOf(R"({"type":"NVR_REPLAY_MESSAGE","code":"3009"})", jump),
              "type: names another message than NVR_REPLAY_MESSAGE/3010");
    EXPECT_EQ(problemOf("{\"type\":", jump).find("parse error at line 1, column 9"), 0u);
    EXPECT_THROW(fromJson(parseJson(R"({"type":"NEW","code":"1","record":{}})"), {}), JsonError);
    EXPECT_THROW(fromJson(Json::object(), {}), JsonError);
    // A message that the catalogue doesn't know has a header at least.
    const Message unknown = fromJson(parseJson(R"({"type":"NEW","code":"1","header":{"Msg_flag":"f"}})"), {});
    EXPECT_NE(composed(unknown).find("Msg_type=\"NEW\""), Bytes::npos);
}

// A record whose fields choose another message would be read as what it isn't.
TEST(JsonMessages, CannotBecomeOthers)
{
    Message up = sampleMessage(only("up"), ZEL_KIND_REQUEST);
    setField(up, "cmd", "GetOrbitList", {});
    Cipher plain;
    EXPECT_EQ(compose(up, plain).status, ZEL_ERR_BAD_CONTENT);
    Message jump = sampleMessage(only("NVR_REPLAY_MESSAGE/3010"), ZEL_KIND_REQUEST);
    setField(jump, "header.Msg_code", "3001", {});
    EXPECT_EQ(compose(jump, plain).status, ZEL_ERR_BAD_CONTENT);
}

// --- Single fields -------------------------------------------------------------------------------

std::string problemOfSetting(const char* path, const char* value)
{
    Message list = makeMessage(only("SYSTEM_CONFIG_GET_MESSAGE/2510"), ZEL_KIND_RESPONSE);
    try {
        setField(list, path, value, {});
        return toJson(list, openly()).dump();
    } catch (const JsonError& error) {
        return error.what();
    }
}

TEST(SetField, FollowsAPath)
{
    const auto with = [](const std::string& parts) {
        return R"({"type":"SYSTEM_CONFIG_GET_MESSAGE","code":"2510","kind":"response",)" + parts + "}";
    };
    EXPECT_EQ(problemOfSetting("UserNum", "0x10"), with(R"("record":{"UserNum":16})"));
    EXPECT_EQ(problemOfSetting("record.stAccount[0].Username", "7"),
              with(R"("record":{"stAccount":[{"Username":"7"}]})"));
    EXPECT_EQ(problemOfSetting("stAccount[1]", R"({"LoginStat":1})"),
              with(R"("record":{"stAccount":[{},{"LoginStat":1}]})"));
    EXPECT_EQ(problemOfSetting("Msg_flag", "OK"), with(R"("header":{"Msg_flag":"OK"},"record":{})"));
}

TEST(SetField, SaysWhatCannotBe)
{
    EXPECT_EQ(problemOfSetting("stAccount[40].Username", "a"),
              "stAccount[40].Username: row 40, and there are 40, counted from 0");
    EXPECT_EQ(problemOfSetting("stAccount.Username", "a"), "stAccount.Username: which row of stAccount?");
    EXPECT_EQ(problemOfSetting("stAccount[x]", "a"), "stAccount[x]: a row is written [0]");
    EXPECT_EQ(problemOfSetting("stAccount[0", "a"), "stAccount[0: a row is written [0]");
    EXPECT_EQ(problemOfSetting("stAccount", "a"), "stAccount: has rows: name one, or give all as JSON");
    EXPECT_EQ(problemOfSetting("UserNum[0]", "1"), "UserNum[0]: has no rows");
    EXPECT_EQ(problemOfSetting("UserNum.a", "1"), "UserNum.a: UserNum has no fields");
    EXPECT_EQ(problemOfSetting("UserNum", "many"), "UserNum: many isn't a whole number");
    EXPECT_EQ(problemOfSetting("UserNum", ""), "UserNum:  isn't a whole number");
    EXPECT_EQ(problemOfSetting("usernum", "1"), "usernum: there is no such field; it is written UserNum");
    EXPECT_EQ(problemOfSetting("", "1"),
              ": there is no such field in SYSTEM_CONFIG_GET_2510_PARAM, ZEL_PROTOCOL_HEADER");
}

// --- Texts ---------------------------------------------------------------------------------------

const std::string kDoorGb = "\xC7\xB0\xC3\xC5";           // in GB2312
const std::string kDoorUtf8 = "\xE5\x89\x8D\xE9\x97\xA8"; // the same in UTF-8

TEST(Charsets, TellUtf8FromGb2312)
{
    EXPECT_EQ(toUtf8(kDoorGb, Charset::kGuessed), kDoorUtf8);
    EXPECT_EQ(toUtf8(kDoorUtf8, Charset::kGuessed), kDoorUtf8);
    EXPECT_EQ(fromUtf8(kDoorUtf8, Charset::kGb2312), kDoorGb);
    // Cut within its last character.
    EXPECT_EQ(guess(kDoorUtf8.substr(0, 5)), Charset::kUtf8);
    // Four bytes of GB18030: a smiling face.
    EXPECT_EQ(fromUtf8("\xF0\x9F\x98\x80", Charset::kGb2312), "\x94\x39\xFC\x36");
    EXPECT_EQ(toUtf8("\x94\x39\xFC\x36", Charset::kGb2312), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fromUtf8("\xC0\x80", Charset::kUtf8), std::nullopt);
}

// Whatever it is comes back, in every charset: each pair of bytes in front of a letter, and random ones.
TEST(Charsets, LoseNoByte)
{
    std::uint32_t random = 1;
    for (std::uint32_t i = 0; i < 0x10000 + 20000; ++i) {
        std::string bytes = {static_cast<char>(i >> 8), static_cast<char>(i), 'x'};
        if (i >= 0x10000)
            for (int more = 0; more < 8; ++more) {
                random = random * 1664525 + 1013904223;
                bytes += static_cast<char>(random >> 24);
            }
        for (const Charset charset : {Charset::kUtf8, Charset::kGb2312}) {
            const std::string text = toUtf8(bytes, charset);
            ASSERT_NO_THROW(Json(text).dump()) << i;
            ASSERT_EQ(fromUtf8(text, charset), bytes) << i;
        }
    }
}

TEST(Charsets, AMessageSaysWhichItIs)
{
    Message list = makeMessage(only("SYSTEM_CONFIG_GET_MESSAGE/2510"), ZEL_KIND_RESPONSE);
    auto& account = as<SYSTEM_CONFIG_GET_2510_PARAM>(list).stAccount[0];
    kDoorGb.copy(account.Username, sizeof account.Username);
    std::string("\xFF\x80 \xFE").copy(account.Email, sizeof account.Email);
    const Json json = toJson(list, {});
    EXPECT_EQ(json["charset"], "gb2312");
    EXPECT_EQ(json["record"]["stAccount"][0]["Username"], kDoorUtf8);
    EXPECT_EQ(composed(fromJson(parseJson(json.dump()), {})), composed(list));
    JsonOptions told;
    told.charset = Charset::kUtf8;
    EXPECT_EQ(composed(fromJson(toJson(list, told), told)), composed(list));
    EXPECT_EQ(
        problemOf(R"({"charset":"gb2312","record":{"Time":"\uF900\uD7FF"}})", "NVR_REPLAY_MESSAGE/3010"),
        "none");
}

// --- Secrets -------------------------------------------------------------------------------------

TEST(Secrets, AreShownOnRequestAlone)
{
    const Message login = sampleMessage(only("USER_AUTH_MESSAGE"), ZEL_KIND_REQUEST);
    const Json hidden = toJson(login, {});
    EXPECT_EQ(hidden["record"]["Password"], "***");
    EXPECT_EQ(hidden["record"]["Username"], "admin");
    EXPECT_EQ(toJson(login, openly())["record"]["Password"], "secret");
    EXPECT_EQ(problemOf(hidden.dump(), "USER_AUTH_MESSAGE"),
              "record.Password: *** stands for a secret that wasn't shown; --show-secrets shows it");
}

TEST(Secrets, AreHiddenWithinTextsToo)
{
    EXPECT_EQ(
        hideSecrets("<a Password=\"x\" Name='b' KeyValue = 'y'/> Passwd=z/> OldPassword=\"w\" Password=\"\""),
        "<a Password=\"***\" Name='b' KeyValue = '***'/> Passwd=***/> OldPassword=\"w\" Password=\"\"");
    for (const std::string text : {"Password=", "Password=\"", "Password=\"abc", "=", "Password = ", ""})
        EXPECT_EQ(hideSecrets(text), text == "Password=\"abc" ? "Password=\"***" : text);
    Message wrapping = sampleMessage(only("TRANSPARENT_CHANNEL_MSG"), ZEL_KIND_REQUEST);
    const std::string inside = "<MESSAGE_BODY><USER Password=\"x\"/></MESSAGE_BODY></XML_ZELMAR>";
    setField(wrapping, "acTransData", inside, {});
    EXPECT_EQ(as<TRANSPARENT_HEADER>(wrapping).iTransDataLen, static_cast<int>(inside.size()));
    setField(wrapping, "Session_ID", "", {});
    const Json json = toJson(wrapping, {});
    EXPECT_EQ(json["record"]["acTransData"],
              "<MESSAGE_BODY><USER Password=\"***\"/></MESSAGE_BODY></XML_ZELMAR>");
    EXPECT_EQ(problemOf(json.dump(), "TRANSPARENT_CHANNEL_MSG"),
              "record.acTransData: *** stands for a secret that wasn't shown; --show-secrets shows it");
}

// What speaks of a secret and isn't one.
const std::set<std::string> kNoSecrets = {
    "SYSTEM_CONFIG_GET_2515_PARAM.PasswdEncode",  // how it is encoded
    "SYSTEM_CONFIG_SET_2535_PARAM.PasswdEncode",  // the same
    "SYSTEM_CONFIG_PPTP_CONFIG.MPPE",             // whether
    "SYSTEM_CONFIG_SET_820_PARAM.Authentication", // whether
    "SYSTEM_CONTROL_1026_PARAM.EncrptType",       // which cipher
    "SYSTEM_ENCRYPT_150_PARAM.KeyLen",            // how long
    "SYSTEM_SEARCHIPC_ACCOUNT.Username",          // stands beside one
    "USER_AUTH_CMD_USER_AUTH_PARAM.Capbility",    // of the cipher
    "USER_AUTH_CMD_USER_AUTH_PARAM.KeyTypeVer",   // which form of key
    "USER_AUTH_CMD_USER_AUTH_PARAM.Version",      // of the cipher
};

TEST(Secrets, AreAllOnTheList)
{
    const std::regex name("pass(w|$)|pwd|key|session|secret|token|psk|credential|nonce", std::regex::icase);
    const std::regex comment("passw|\\bkey|session|secret|encrypt|cipher|token|credential",
                             std::regex::icase);
    std::set<std::string> notSecret;
    for (const Record& record : records())
        for (const Field& field : record.fields)
            if (std::regex_search(field.name.begin(), field.name.end(), name) ||
                std::regex_search(field.comment.begin(), field.comment.end(), comment))
                if (!field.isSecret)
                    notSecret.insert(std::string(record.name) + "." + std::string(field.name));
    EXPECT_EQ(notSecret, kNoSecrets);
}

TEST(Secrets, AreKnownByTheirAttributes)
{
    struct Place
    {
        const char* record;
        const char* extension;
        int found;
    };
    int found = 0;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        const Message message = makeMessage(index, 0);
        Place place{message.entry.record, message.entry.extension, 0};
        const auto see = [](void* context, const ZEL_DESCRIPTION* seen) {
            auto& all = *static_cast<Place*>(context);
            const char* const record = seen->in_extension ? all.extension : all.record;
            if (!seen->attribute || !record)
                return;
            const FieldPlace at = fieldAt(*findRecord(record), seen->offset);
            if (!at.field || !at.field->isSecret)
                return;
            ++all.found;
            EXPECT_TRUE(isSecretAttribute(seen->attribute)) << seen->attribute << " of " << at.path;
        };
        ZelProtocolCatalogueDescribe(index, 0, see, &place);
        ZelProtocolCatalogueDescribe(index, 1, see, &place);
        found += place.found;
    }
    EXPECT_GT(found, 20);
}

} // namespace
