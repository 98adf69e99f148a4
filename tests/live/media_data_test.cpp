#include "zel_protocol/media_data.h"

#include <algorithm>
#include <array>
#include <climits>

#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "MEDIA_DATA_MESSAGE";
const std::string kEndCode(4, '\0');

template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    init(&record);
    return record;
}

// Composes and compares the text to the byte, and what is announced behind it.
void expectBody(const char* code, const void* record, int kind, const std::string& body, int extra)
{
    SCOPED_TRACE("code " + std::string(code) + " kind " + std::to_string(kind));
    const Composed composed = compose(headerOf(kType, code), record, kind);
    EXPECT_EQ(composed.text, envelope(kType, code, body));
    EXPECT_EQ(static_cast<int>(composed.announced - composed.text.size()), extra);
}

Analysed received(const char* code, const std::string& body, const std::string& behind = "")
{
    return analyse(envelope(kType, code, body) + behind);
}

MEDIA_DATA_2_PARAM downloadRecord()
{
    auto download = fresh(MEDIA_DATA_2_PARAM_init);
    download.StartPos = 11;
    download.ErrorCode = 12;
    set(download.RemoteFileName, "remote");
    set(download.LocalFileName, "local");
    return download;
}

MEDIA_DATA_4_PARAM pictureRecord()
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
    return picture;
}

MEDIA_DATA_5_PARAM exportRecord()
{
    auto faces = fresh(MEDIA_DATA_5_PARAM_init);
    faces.StartPos = 4;
    faces.DataLen = 5;
    faces.SerialNum = 4000000000U;
    set(faces.Alias, "alias");
    faces.DataNum = 7;
    faces.ListType = 8;
    return faces;
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

TEST(MediaData, Chunks)
{
    auto upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.StartPos = 10;
    upload.DataLen = 20;
    const auto download = downloadRecord();
    auto intercom = fresh(MEDIA_DATA_3_PARAM_init);
    intercom.StartPos = 1;
    intercom.DataLen = 2;
    for (const int kind : {0, 2}) {
        expectBody("1", &upload, kind, "<POS\nStartPos=\"10\"\nDataLen=\"20\"\n/>\n", 24);
        expectBody("2", &download, kind, "<POS\nStartPos=\"11\"\nDataLen=\"-1\"\n/>\n", 3);
        expectBody("3", &intercom, kind, "<POS\nStartPos=\"1\"\nDataLen=\"2\"\n/>\n", 6);
    }
    intercom.XmlLen = 3;
    expectBody("3", &intercom, 0, "<POS\nStartPos=\"1\"\nDataLen=\"2\"\nXmlLen=\"3\"\n/>\n", 6);
    for (const int kind : {1, 3}) {
        expectBody("1", &upload, kind, "", 0);
        expectBody("2", &download, kind,
                   "<RESPONSE_PARAM\nRemoteFileName=\"remote\"\nLocalFileName=\"local\"\nStartPos=\"11\"\n"
                   "ErrorCode=\"12\"\n/>\n",
                   0);
        expectBody("3", &intercom, kind, "", 0);
    }
    upload.Type = 7;
    expectBody("1", &upload, 1, "<RESPONSE_PARAM\nType=\"7\"\n/>\n", 0);
}

TEST(MediaData, PicturesAndExport)
{
    auto picture = pictureRecord();
    const std::string info = "<DataInfo\nDataType=\"2\"\nDataTotalLen=\"3\"\nDataName=\"name\"\n"
                             "Timestamp=\"4000000000\"\nSerialNum=\"8\"\n/>\n";
    const std::string request = "<POS\nStartPos=\"4\"\nDataLen=\"5\"\n/>\n";
    const std::string chunk = "<POS\nXmlLen=\"6\"\nStartPos=\"4\"\nDataLen=\"5\"\n/>\n";
    expectBody("4", &picture, 2, request + info, 9);
    expectBody("4", &picture, 1, info, 0);
    picture.ChannelId = 1;
    expectBody("4", &picture, 3, "<RESPONSE_PARAM\nChannelId=\"1\"\n/>\n" + chunk, 9);
    picture.ChannelId = 255;
    expectBody("4", &picture, 1, chunk, 9);

    auto faces = exportRecord();
    faces.ChannelId = 1;
    faces.XmlLen = 6;
    expectBody("5", &faces, 0,
               "<DataInfo\nSerialNum=\"4000000000\"\nAlias=\"alias\"\nListType=\"8\"\nDataNum=\"7\"\n/>\n" +
                   request,
               9);
    expectBody("5", &faces, 1, "<RESPONSE_PARAM\nChannelId=\"1\"\n/>\n" + chunk, 9);
    faces.ChannelId = -1;
    expectBody("5", &faces, 1, chunk, 9);
    faces.DataLen = -1;
    expectBody("5", &faces, 1, "", 0);
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
    const std::string one = "<HumanFaceInfo\nSerialNum=\"10\"\nAlias=\"a\"\n/>\n";
    const std::string two = one + "<HumanFaceInfo\nSerialNum=\"11\"\nAlias=\"b\"\n/>\n";
    expectBody("6", &list, 0, "<DataInfo\nDataNum=\"2\"\nListType=\"1\"\n/>\n" + two, 0);
    expectBody("6", &list, 1, "", 0);
    expectBody("7", &list, 0, "<DataInfo\nTotalData=\"9\"\nDataNum=\"2\"\nListType=\"1\"\n/>\n", 0);
    expectBody("7", &list, 3, "<DataInfo\nTotalData=\"9\"\nDataNum=\"2\"\nListType=\"1\"\n/>\n" + two, 0);
    list.DataNum = 1000;
    list.stFaces[1].SerialNum = UINT32_MAX;
    expectBody("6", &list, 2, "<DataInfo\nDataNum=\"1000\"\nListType=\"1\"\n/>\n" + one, 0);
    for (auto& entry : list.stFaces)
        entry.SerialNum = 1;
    const std::string all = compose(headerOf(kType, "6"), &list, 0).text;
    EXPECT_EQ(all.find("</MESSAGE_BODY>"), all.find("</XML_ZELMAR>") - 16);
    EXPECT_EQ(std::count(all.begin(), all.end(), '/') - 4, 100);

    std::string body = "<DataInfo ListType=\"1\" TotalData=\"9\" DataNum=\"3\"/>";
    for (int i = 0; i < 101; ++i)
        body += "<HumanFaceInfo Alias=\"x\" SerialNum=\"" + std::to_string(i) + "\"/><Other/>";
    const Analysed deleted = received("6", body);
    const Analysed queried = received("7", body);
    ASSERT_EQ(deleted.result, 0);
    ASSERT_EQ(queried.result, 0);
    EXPECT_EQ(deleted.as<MEDIA_DATA_6_PARAM>().TotalData, -1);
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
    expectBody("8", &thumbnail, 0, "<REQUEST_PARAM\nTimeList=\"\"\n/>\n", 0);
    set(thumbnail.Time[0], whole);
    set(thumbnail.Time[1], "b");
    set(thumbnail.Time[3], "d");
    thumbnail.TotalLen = 1;
    thumbnail.StartPos = 2;
    thumbnail.DataLen = 3;
    expectBody("8", &thumbnail, 2, "<REQUEST_PARAM\nTimeList=\"" + whole + ",b,\"\n/>\n", 0);
    expectBody("8", &thumbnail, 1,
               "<RESPONSE_PARAM\nTime=\"" + whole +
                   "\"\n/>\n<ImageInfo\nTotalLen=\"1\"\nStartPos=\"2\"\nDataLen=\"3\"\n/>\n",
               7);

    std::string times;
    for (int i = 0; i < 21; ++i)
        times += ",," + whole + static_cast<char>('a' + i);
    const Analysed analysed = received(
        "8", "<REQUEST_PARAM EventTypeList=\",x,\" DurationList=\"1,2\" TimeList=\"" + times + "\"/>");
    ASSERT_EQ(analysed.result, 0);
    const auto& read = analysed.as<MEDIA_DATA_8_PARAM>();
    for (const auto& time : read.Time)
        EXPECT_EQ(get(time), whole);
    EXPECT_EQ(get(read.Duration[0]) + get(read.Duration[1]) + get(read.Duration[2]), "12");
    EXPECT_EQ(get(read.EventType[0]) + get(read.EventType[1]), "x");
    EXPECT_EQ(read.pData, nullptr);
    EXPECT_EQ(read.DataLen, -1);
}

// Attributes in other orders than they are written in; elements of the other direction beside the one that
// counts.
TEST(MediaData, ReadsEitherDirection)
{
    const std::string chunk = "<POS DataLen=\"5\" XmlLen=\"6\" StartPos=\"4\"/>";
    const std::string info =
        "<DataInfo SerialNum=\"SERIAL\" Timestamp=\"4000000000\" DataName=\"name\" "
        "DataTotalLen=\"3\" DataType=\"2\" Alias=\"alias\" ListType=\"8\" DataNum=\"7\"/>";
    const std::string response = "<RESPONSE_PARAM Time=\"20240101120000001\" ChannelId=\"1\" Type=\"7\" "
                                 "ErrorCode=\"12\" LocalFileName=\"local\" StartPos=\"11\" "
                                 "RemoteFileName=\"remote\"/>";
    const std::string data = "12345";
    const std::string behind = kEndCode + data;

    auto upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.Type = 7;
    expectRecord(received("1", chunk + response, behind), upload, "");
    expectRecord(received("2", chunk + response, behind), downloadRecord(), "");

    const auto numbered = [&](const char* serial) {
        std::string text = info;
        return text.replace(text.find("SERIAL"), 6, serial);
    };
    expectRecord(received("4", numbered("8") + chunk, behind), pictureRecord(), data);
    expectRecord(received("5", chunk + numbered("-294967296"), behind), exportRecord(), data);
    auto picture = fresh(MEDIA_DATA_4_PARAM_init);
    auto faces = fresh(MEDIA_DATA_5_PARAM_init);
    picture.ChannelId = faces.ChannelId = 1;
    picture.StartPos = faces.StartPos = 4;
    picture.DataLen = faces.DataLen = 5;
    picture.XmlLen = faces.XmlLen = 6;
    expectRecord(received("4", info + chunk + response, behind), picture, data);
    expectRecord(received("5", info + chunk + response, behind), faces, data);

    auto thumbnail = fresh(MEDIA_DATA_8_PARAM_init);
    set(thumbnail.Time[0], "202401011200000");
    thumbnail.TotalLen = 5;
    thumbnail.StartPos = 4;
    thumbnail.DataLen = 5;
    expectRecord(received("8", response + "<ImageInfo DataLen=\"5\" StartPos=\"4\" TotalLen=\"5\"/>", behind),
                 thumbnail, data);
}

// Every number of received bytes around the announced ones.
TEST(MediaData, DataStaysWithinWhatWasReceived)
{
    const std::string body = "<POS StartPos=\"0\" DataLen=\"5\"/>";
    const std::string text = envelope(kType, "1", body);
    const std::string behind = kEndCode + "12345";
    for (size_t size = 0; size <= behind.size() + 2; ++size) {
        resetServices();
        const Analysed analysed = received("1", body, (behind + "xx").substr(0, size));
        if (size < 4) {
            ASSERT_EQ(analysed.result, 0);
            EXPECT_EQ(std::string(analysed.as<MEDIA_DATA_1_PARAM>().pData, 5), text.substr(0, 5));
        } else if (size < behind.size()) {
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
    EXPECT_EQ(announced(INT_MAX, behind).result, ZEL_ERR_BAD_CONTENT);
    for (const char* length : {"0", "-1", "-2147483648"}) {
        const Analysed none = received("1", "<POS DataLen=\"" + std::string(length) + "\"/>", behind);
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
    for (const auto& each : cases) {
        resetServices();
        EXPECT_EQ(received(each[0], each[1]).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(std::string("MediaData_") + each[2] + " error\n")) << each[2];
    }
    resetServices();
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
    EXPECT_EQ(MediaDataMessageCompose(nullptr, 0, "1", out, 1, &extra), 0);
    EXPECT_EQ(MediaDataMessageCompose(&record, 0, "9", out, sizeof out, &extra), ZEL_ERR_UNKNOWN_MSG);
    resetServices();
    EXPECT_EQ(MediaDataMessageCompose(nullptr, 0, "1", out, sizeof out, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("MEDIA_DATA_MESSAGE put a empty Param\n"));
    EXPECT_EQ(MediaDataMessageCompose(&record, 0, nullptr, out, sizeof out, &extra), ZEL_ERR_BAD_PARAM);

    const std::string text = envelope(kType, "1", "<POS DataLen=\"3\"/>");
    const std::string payload = text + kEndCode + "abc";
    const auto analysed = [&](const char* code, size_t received, int srcLen) {
        const auto bytes = std::make_unique<char[]>(received);
        memcpy(bytes.get(), payload.data(), received);
        void* result = nullptr;
        const int status = MediaDataMessageAnalysis(bytes.get(), code, srcLen, &result);
        std::string data = status != 0 ? "" : std::string(static_cast<MEDIA_DATA_1_PARAM*>(result)->pData, 3);
        ZelProtocolMSGAnalysisStop(&result);
        return std::make_pair(status, data);
    };
    const int size = static_cast<int>(payload.size());
    EXPECT_EQ(analysed("1", payload.size(), size), std::make_pair(0, std::string("abc")));
    EXPECT_EQ(analysed("1", payload.size() - 1, size - 1).first, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(analysed("1", text.size() + 1, 0), std::make_pair(0, std::string("<?x")));
    EXPECT_EQ(analysed("3", text.size() + 1, -1).first, ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(analysed("1", text.size() - 1, static_cast<int>(text.size()) - 1).first, ZEL_ERR_BAD_DOCUMENT);

    void* result = nullptr;
    resetServices();
    EXPECT_EQ(MediaDataMessageAnalysis(nullptr, "1", 1, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("MEDIA_DATA_MESSAGE put a empty Param\n"));
    EXPECT_EQ(MediaDataMessageAnalysis("<a/>", nullptr, 4, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(MediaDataMessageAnalysis("<a/>", "1", 4, nullptr), ZEL_ERR_BAD_PARAM);
}

} // namespace
