#include <array>
#include <climits>

#include "support/wire.h"
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

const std::string kType = "MEDIA_DATA_MESSAGE";
const std::string kEndCode(4, '\0');

// Composes and compares the text to the byte, and what is announced behind it.
void expectBody(const char* code, const void* record, int kind, const std::string& body, int extra)
{
    SCOPED_TRACE("code " + std::string(code) + " kind " + std::to_string(kind));
    const Composed composed = compose(headerOf(kType, code), record, kind);
    EXPECT_EQ(composed.text, envelope(kType, code, wire(body)));
    EXPECT_EQ(static_cast<int>(composed.announced - composed.text.size()), extra);
}

Analysed received(const char* code, const std::string& body, const std::string& behind = "")
{
    return analyse(envelope(kType, code, wire(body)) + behind);
}

// An analysed record equals another but for its data.
template <class Record>
void expectRecord(const Analysed& analysed, Record expected, const std::string& data)
{
    ASSERT_EQ(analysed.result, 0);
    const auto& record = analysed.as<Record>();
    if (data.empty()) {
        EXPECT_EQ(record.pData, nullptr);
    } else {
        ASSERT_EQ(record.pData, reinterpret_cast<const char*>(&record + 1));
        EXPECT_EQ(std::string(record.pData, data.size()), data);
    }
    expected.pData = record.pData;
    EXPECT_EQ(memcmp(&record, &expected, sizeof expected), 0);
}

const std::string kBehind = kEndCode + "12345";

TEST(MediaData, Chunks)
{
    auto upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.StartPos = 10;
    upload.DataLen = 20;
    auto download = fresh(MEDIA_DATA_2_PARAM_init);
    download.StartPos = 11;
    download.ErrorCode = 12;
    set(download.RemoteFileName, "remote");
    set(download.LocalFileName, "local");
    auto intercom = fresh(MEDIA_DATA_3_PARAM_init);
    intercom.StartPos = 1;
    intercom.DataLen = 2;
    const std::string downloaded = "<RESPONSE_PARAM|RemoteFileName='remote'|LocalFileName='local'|"
                                   "StartPos='11'|ErrorCode='12'|/>|";
    for (const int kind : {0, 2}) {
        expectBody("1", &upload, kind, "<POS|StartPos='10'|DataLen='20'|/>|", 24);
        expectBody("1", &upload, kind + 1, "", 0);
        expectBody("2", &download, kind, "<POS|StartPos='11'|DataLen='-1'|/>|", 3);
        expectBody("2", &download, kind + 1, downloaded, 0);
        expectBody("3", &intercom, kind, "<POS|StartPos='1'|DataLen='2'|/>|", 6);
        expectBody("3", &intercom, kind + 1, "", 0);
    }
    intercom.XmlLen = 3;
    expectBody("3", &intercom, 0, "<POS|StartPos='1'|DataLen='2'|XmlLen='3'|/>|", 6);
    upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.Type = 7;
    expectBody("1", &upload, 1, "<RESPONSE_PARAM|Type='7'|/>|", 0);

    // Elements of the other direction beside the one that counts.
    const std::string chunk = "<POS StartPos='4' DataLen='5'/>";
    expectRecord(received("1", chunk + "<RESPONSE_PARAM Type='7'/>", kBehind), upload, "");
    expectRecord(received("2", chunk + downloaded, kBehind), download, "");
}

TEST(MediaData, PicturesAndExport)
{
    auto picture = fresh(MEDIA_DATA_4_PARAM_init);
    picture.DataType = 2;
    picture.DataTotalLen = 3;
    picture.StartPos = 4;
    picture.DataLen = 5;
    picture.XmlLen = 6;
    picture.Timestamp = 4000000000U;
    picture.SerialNum = 8;
    set(picture.DataName, "name");
    const std::string info = "<DataInfo|DataType='2'|DataTotalLen='3'|DataName='name'|Timestamp='4000000000'|"
                             "SerialNum='8'|/>|";
    const std::string request = "<POS|StartPos='4'|DataLen='5'|/>|";
    const std::string chunk = "<POS|XmlLen='6'|StartPos='4'|DataLen='5'|/>|";
    const std::string channel = "<RESPONSE_PARAM|ChannelId='1'|/>|";
    expectBody("4", &picture, 2, request + info, 9);
    expectBody("4", &picture, 1, info, 0);
    expectRecord(received("4", info + chunk, kBehind), picture, "12345");
    picture.ChannelId = 1;
    expectBody("4", &picture, 3, channel + chunk, 9);
    picture.ChannelId = 255;
    expectBody("4", &picture, 1, chunk, 9);

    auto faces = fresh(MEDIA_DATA_5_PARAM_init);
    faces.StartPos = 4;
    faces.DataLen = 5;
    faces.SerialNum = 4000000000U;
    set(faces.Alias, "alias");
    faces.DataNum = 7;
    faces.ListType = 8;
    expectRecord(received("5",
                          chunk + "<DataInfo SerialNum='-294967296' Alias='alias' ListType='8' DataNum='7'/>",
                          kBehind),
                 faces, "12345");
    faces.ChannelId = 1;
    faces.XmlLen = 6;
    expectBody("5", &faces, 0,
               "<DataInfo|SerialNum='4000000000'|Alias='alias'|ListType='8'|DataNum='7'|/>|" + request, 9);
    expectBody("5", &faces, 1, channel + chunk, 9);
    faces.ChannelId = -1;
    expectBody("5", &faces, 1, chunk, 9);
    faces.DataLen = -1;
    expectBody("5", &faces, 1, "", 0);

    // An answer's channel, and nothing of what asks.
    picture = fresh(MEDIA_DATA_4_PARAM_init);
    faces = fresh(MEDIA_DATA_5_PARAM_init);
    picture.ChannelId = faces.ChannelId = 1;
    picture.StartPos = faces.StartPos = 4;
    picture.DataLen = faces.DataLen = 5;
    picture.XmlLen = faces.XmlLen = 6;
    expectRecord(received("4", info + chunk + channel, kBehind), picture, "12345");
    expectRecord(received("5", info + chunk + channel, kBehind), faces, "12345");
}

TEST(MediaData, FaceLists)
{
    auto list = fresh(MEDIA_DATA_6_PARAM_init);
    list.TotalData = 9;
    list.DataNum = 2;
    list.ListType = 1;
    for (uint32_t i = 0; i < 3; ++i) {
        list.stFaces[i].SerialNum = 10 + i;
        set(list.stFaces[i].Alias, std::string(1, static_cast<char>('a' + i)));
    }
    const std::string one = "<HumanFaceInfo|SerialNum='10'|Alias='a'|/>|";
    const std::string two = one + "<HumanFaceInfo|SerialNum='11'|Alias='b'|/>|";
    const std::string total = "<DataInfo|TotalData='9'|DataNum='2'|ListType='1'|/>|";
    expectBody("6", &list, 0, "<DataInfo|DataNum='2'|ListType='1'|/>|" + two, 0);
    expectBody("6", &list, 1, "", 0);
    expectBody("7", &list, 0, total, 0);
    expectBody("7", &list, 3, total + two, 0);
    list.DataNum = 1000;
    list.stFaces[1].SerialNum = UINT32_MAX;
    expectBody("6", &list, 2, "<DataInfo|DataNum='1000'|ListType='1'|/>|" + one, 0);
    for (auto& entry : list.stFaces)
        entry.SerialNum = 1;
    const std::string all = bodyOf(kType, "6", &list, 0);
    EXPECT_EQ(std::count(all.begin(), all.end(), '<'), 101);

    std::string body = "<DataInfo ListType='1' TotalData='9' DataNum='3'/>";
    for (int i = 0; i < 101; ++i)
        body += "<HumanFaceInfo Alias='x' SerialNum='" + std::to_string(i) + "'/><Other/>";
    EXPECT_EQ(received("6", body).as<MEDIA_DATA_6_PARAM>().TotalData, -1);
    const Analysed queried = received("7", body);
    const auto& faces = queried.as<MEDIA_DATA_7_PARAM>();
    EXPECT_EQ(faces.TotalData, 9);
    EXPECT_EQ(faces.DataNum, 3);
    EXPECT_EQ(faces.ListType, 1);
    EXPECT_EQ(faces.stFaces[99].SerialNum, 99U);
    EXPECT_EQ(get(faces.stFaces[99].Alias), "x");
}

TEST(MediaData, ThumbnailTimes)
{
    const std::string whole = "2024010112000000";
    auto thumbnail = fresh(MEDIA_DATA_8_PARAM_init);
    expectBody("8", &thumbnail, 0, "<REQUEST_PARAM|TimeList=''|/>|", 0);
    set(thumbnail.Time[0], "202401011200000"); // read with room for the terminator
    thumbnail.TotalLen = 5;
    thumbnail.StartPos = 4;
    thumbnail.DataLen = 5;
    const std::string image = "<ImageInfo|TotalLen='5'|StartPos='4'|DataLen='5'|/>|";
    expectRecord(received("8", "<RESPONSE_PARAM Time='" + whole + "'/>" + image, kBehind), thumbnail,
                 "12345");
    set(thumbnail.Time[0], whole);
    set(thumbnail.Time[1], "b");
    set(thumbnail.Time[3], "d");
    expectBody("8", &thumbnail, 2, "<REQUEST_PARAM|TimeList='" + whole + ",b,'|/>|", 0);
    expectBody("8", &thumbnail, 1, "<RESPONSE_PARAM|Time='" + whole + "'|/>|" + image, 9);

    std::string times;
    for (int i = 0; i < 21; ++i)
        times += ",," + whole + static_cast<char>('a' + i);
    const Analysed analysed =
        received("8", "<REQUEST_PARAM EventTypeList=',x,' DurationList='1,2' TimeList='" + times + "'/>");
    ASSERT_EQ(analysed.result, 0);
    const auto& read = analysed.as<MEDIA_DATA_8_PARAM>();
    for (const auto& time : read.Time)
        EXPECT_EQ(get(time), whole);
    EXPECT_EQ(get(read.Duration[0]) + get(read.Duration[1]) + get(read.Duration[2]), "12");
    EXPECT_EQ(get(read.EventType[0]) + get(read.EventType[1]), "x");
    EXPECT_EQ(read.pData, nullptr);
    EXPECT_EQ(read.DataLen, -1);
}

// Every number of received bytes around the announced ones.
TEST(MediaData, DataStaysWithinWhatWasReceived)
{
    const std::string body = "<POS StartPos=\"0\" DataLen=\"5\"/>";
    const std::string text = envelope(kType, "1", body);
    for (size_t size = 0; size <= kBehind.size() + 2; ++size) {
        resetServices();
        const Analysed analysed = received("1", body, (kBehind + "xx").substr(0, size));
        if (size < 4) {
            ASSERT_EQ(analysed.result, 0);
            EXPECT_EQ(std::string(analysed.as<MEDIA_DATA_1_PARAM>().pData, 5), text.substr(0, 5));
        } else if (size < kBehind.size()) {
            EXPECT_EQ(analysed.result, ZEL_ERR_BAD_CONTENT);
            EXPECT_EQ(services().blocks, 0);
            EXPECT_EQ(services().errors.size(), 1U);
        } else {
            ASSERT_EQ(analysed.result, 0);
            EXPECT_EQ(std::string(analysed.as<MEDIA_DATA_1_PARAM>().pData, 5), "12345");
        }
    }
    const auto announced = [&](size_t length, const std::string& tail) {
        return received("1", "<POS DataLen=\"" + std::to_string(length) + "\"/>", tail);
    };
    // Without an end code the text itself is the data, and what lies behind it too.
    const std::string noEndCode("\0\0\0x12", 6);
    const size_t whole = envelope(kType, "1", "<POS DataLen=\"999\"/>").size() + noEndCode.size();
    const Analysed all = announced(whole, noEndCode);
    ASSERT_EQ(all.result, 0);
    EXPECT_EQ(std::string(all.as<MEDIA_DATA_1_PARAM>().pData, whole), all.payload);
    EXPECT_EQ(announced(whole + 1, noEndCode).result, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(*announced(1, kBehind).as<MEDIA_DATA_1_PARAM>().pData, '1');
    EXPECT_EQ(announced(INT_MAX, kBehind).result, ZEL_ERR_BAD_CONTENT);
    for (const char* code : {"2", "4", "5"})
        EXPECT_EQ(received(code, "<DataInfo/><POS DataLen='2147483643'/>", kBehind).result,
                  ZEL_ERR_BAD_CONTENT);
    for (const char* length : {"0", "-1", "-2147483648"}) {
        const Analysed none = received("1", "<POS DataLen=\"" + std::string(length) + "\"/>", kBehind);
        ASSERT_EQ(none.result, 0);
        EXPECT_EQ(none.as<MEDIA_DATA_1_PARAM>().pData, nullptr);
    }
}

TEST(MediaData, IntercomLengthsAddUp)
{
    const std::string body = "<POS XmlLen=\"6\" DataLen=\"3\" StartPos=\"4\"/>";
    const size_t size = envelope(kType, "3", body).size();
    const Analysed good = received("3", body, kEndCode + "abc");
    ASSERT_EQ(good.result, 0);
    EXPECT_EQ(good.as<MEDIA_DATA_3_PARAM>().XmlLen, 6);
    EXPECT_EQ(good.as<MEDIA_DATA_3_PARAM>().StartPos, 4);
    EXPECT_EQ(std::string(good.as<MEDIA_DATA_3_PARAM>().pData, 3), "abc");

    resetServices();
    EXPECT_EQ(received("3", body, kEndCode + "abcd").result, ZEL_ERR_BAD_CONTENT);
    EXPECT_TRUE(loggedOnly("MediaData_IntercomData_MessageAnalysis date size error : xmllen(" +
                           std::to_string(size) + ") datalen(3) endcode(4) all(" + std::to_string(size + 8) +
                           ")\n"));
    EXPECT_EQ(received("3", body, kEndCode + "ab").result, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(received("3", "<POS StartPos=\"1\"/>", "123").result, 0);
    EXPECT_EQ(received("3", "<POS StartPos=\"1\"/>", kEndCode).result, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(received("3", "<POS DataLen=\"2147483647\"/>", kEndCode).result, ZEL_ERR_BAD_CONTENT);
}

// With an unknown length nothing adds up, whatever is announced.
TEST(MediaData, IntercomNeedsTheReceivedLength)
{
    const auto textOf = [](int dataLen) {
        return envelope(kType, "3", "<POS DataLen=\"" + std::to_string(dataLen) + "\"/>");
    };
    const int size = static_cast<int>(textOf(-999).size()); // of every length of three digits
    for (const int srcLen : {0, -1, -50}) {
        void* result = nullptr;
        const std::string text = textOf(srcLen - 4 - size);
        ASSERT_EQ(static_cast<int>(text.size()), size);
        EXPECT_EQ(MediaDataMessageAnalysis(text.c_str(), "3", srcLen, &result), ZEL_ERR_BAD_CONTENT)
            << srcLen;
        EXPECT_EQ(result, nullptr);
    }
}

// Text and data enciphered as one, as frame.h tells.
TEST(MediaData, DataUnderACipher)
{
    ZEL_PLATFORM_KEY key{};
    const auto enciphered = [&](const std::string& plain) {
        std::string bytes(plain.size() + 64, '\0');
        const int size = ZelProtocolEncode(1, plain.data(), static_cast<int>(plain.size()), bytes.data(),
                                           static_cast<int>(bytes.size()), &key);
        bytes.resize(static_cast<size_t>(std::max(size, 0)));
        return bytes;
    };
    const std::string body = "<POS StartPos='1' DataLen='5'/>";
    const std::string upload = envelope(kType, "1", wire(body));
    auto expected = fresh(MEDIA_DATA_1_PARAM_init);
    expected.StartPos = 1;
    expected.DataLen = 5;
    expectRecord(analyse(enciphered(upload + kBehind), 1, &key), expected, "12345");
    EXPECT_EQ(analyse(enciphered(upload) + kBehind, 1, &key).result, ZEL_ERR_CODEC);

    const std::string intercom = envelope(kType, "3", wire(body)) + kBehind;
    const std::string payload = enciphered(intercom);
    EXPECT_EQ(analyse(payload, 1, &key).result, ZEL_ERR_BAD_CONTENT);
    std::string opened(payload.size(), '\0');
    const int size = ZelProtocolDecode(1, payload.data(), static_cast<int>(payload.size()), opened.data(),
                                       static_cast<int>(opened.size()), &key);
    EXPECT_EQ(analyse(opened.substr(0, static_cast<size_t>(size))).result, 0);
}

TEST(MediaData, MissingElements)
{
    const std::array<const char*, 3> cases[] = {
        {"1", "<X/>", "UploadData_MessageAnalysis get POS"},
        {"2", "", "DownloadData_MessageAnalysis get POS"},
        {"3", "<RESPONSE_PARAM/>", "IntercomData_MessageAnalysis get POS"},
        {"4", "<POS DataLen=\"0\"/>", "IntelligentPicData_MessageAnalysis get POS"},
        {"5", "<POS DataLen=\"0\"/>", "ExportFaceListData_MessageAnalysis get POS"},
        {"6", "<HumanFaceInfo/>", "DeleteFaceData_MessageAnalysis get DataInfo"},
        {"7", "<HumanFaceInfo/>", "GetFaceListData_MessageAnalysis get POS"},
        {"8", "<ImageInfo/>", "GetAlarmThumbail_MessageAnalysis get POS"},
    };
    resetServices();
    for (const auto& each : cases) {
        EXPECT_EQ(received(each[0], each[1]).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(std::string("MediaData_") + each[2] + " error\n")) << each[2];
    }
    EXPECT_EQ(received("9", "").result, ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly("MEDIA_DATA_MESSAGE deal a unknow msg_cdoe : 9\n"));
}

TEST(MediaData, ExportedPair)
{
    auto record = fresh(MEDIA_DATA_1_PARAM_init);
    record.DataLen = INT_MAX;
    char out[64];
    int extra = INT_MAX;
    EXPECT_EQ(MediaDataMessageCompose(&record, 0, "1", out, sizeof out, &extra), 0);
    EXPECT_STREQ(out, "<POS\nStartPos=\"-1\"\nDataLen=\"2147483647\"\n/>\n");
    EXPECT_EQ(extra, 2);
    EXPECT_EQ(MediaDataMessageCompose(&record, 0, "1", out, static_cast<int>(strlen(out)), &extra),
              ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(MediaDataMessageCompose(&record, 0, "9", out, sizeof out, &extra), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_EQ(MediaDataMessageCompose(nullptr, 0, "1", out, sizeof out, nullptr), ZEL_ERR_BAD_PARAM);

    const std::string text = envelope(kType, "1", wire("<POS DataLen='3'/>"));
    const auto expectAnalysed = [&](const char* code, size_t size, int srcLen, int status, const char* data) {
        const auto bytes = std::make_unique<char[]>(size);
        memcpy(bytes.get(), (text + kEndCode + "abc").data(), size);
        void* result = nullptr;
        ASSERT_EQ(MediaDataMessageAnalysis(bytes.get(), code, srcLen, &result), status) << size;
        EXPECT_TRUE(!result || std::string(static_cast<MEDIA_DATA_1_PARAM*>(result)->pData, 3) == data)
            << size;
        ZelProtocolMSGAnalysisStop(&result);
    };
    const int size = static_cast<int>(text.size());
    expectAnalysed("1", text.size() + 7, size + 7, 0, "abc");
    expectAnalysed("1", text.size() + 6, size + 6, ZEL_ERR_BAD_CONTENT, "");
    expectAnalysed("1", text.size() + 1, 0, 0, "<?x");
    expectAnalysed("3", text.size() + 1, -1, ZEL_ERR_BAD_CONTENT, "");
    expectAnalysed("1", text.size() - 1, size - 1, ZEL_ERR_BAD_DOCUMENT, "");
}

} // namespace
