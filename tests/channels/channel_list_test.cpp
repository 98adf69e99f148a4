#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

using Search = SYSTEM_CONFIG_GET_3801_PARAM;
using List = SYSTEM_CONFIG_GET_3803_PARAM;
using Added = SYSTEM_CONFIG_SET_3804_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    memset(&record, 0xFF, sizeof record);
    init(&record);
    return record;
}

template <class Record>
std::string body(const std::string& code, const Record& record, int kind)
{
    const std::string text = compose(headerOf(kType, code), &record, kind).text;
    const size_t start = text.find("<MESSAGE_BODY>\n") + sizeof("<MESSAGE_BODY>\n") - 1;
    return text.substr(start, text.find("</MESSAGE_BODY>") - start);
}

template <class Record>
bool readsAs(const std::string& code, const std::string& text, const Record& expected)
{
    const Analysed analysed =
        analyse(text.find("<MESSAGE_BODY") == std::string::npos ? envelope(kType, code, text) : text);
    return analysed.result == 0 && memcmp(analysed.record.get(), &expected, sizeof expected) == 0;
}

SYSTEM_CONFIG_CHANNEL_INFO channel(int32_t id)
{
    auto row = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init).stChannelInfo[0];
    row.ChannelId = id;
    row.CtrlPort = 2;
    row.DevMode = 3;
    row.Status = 4;
    row.DevSubType = 5;
    row.Feature = 18446744073709551614u;
    set(row.Protocol, "proto");
    set(row.IpAddr, "ip");
    set(row.Username, "user");
    set(row.Password, "pass");
    set(row.ChannnelName, "name");
    row.Result = 6;
    row.RtspMainResPort = 7;
    row.RtspSubResPort = 8;
    set(row.RtspMainResPath, "main");
    set(row.RtspSubResPath, "sub");
    set(row.RtspDomain, "domain");
    return row;
}

// The channels that a body names, in order.
std::vector<int> channelsOf(const std::string& text)
{
    std::vector<int> channels;
    const std::string name = "ChannelId=\"";
    for (size_t at = 0; (at = text.find(name, at)) != std::string::npos; at += name.size())
        channels.push_back(std::stoi(text.substr(at + name.size())));
    return channels;
}

// --- Search --------------------------------------------------------------------------------------

TEST(ChannelSearch, Request)
{
    Search search = fresh(SYSTEM_CONFIG_GET_3801_PARAM_init);
    EXPECT_EQ(body("3801", search, 0), "");
    search.SearchDuration = 5;
    EXPECT_EQ(body("3801", search, 0), "<REQUEST_PARAM\nSearchDuration=\"5\"\n/>\n\n");
    EXPECT_TRUE(readsAs("3801", "<IPCINFO SN=\"x\"/><REQUEST_PARAM SN=\"x\" SearchDuration=\"5\"/>", search));
}

TEST(ChannelSearch, Response)
{
    Search camera = fresh(SYSTEM_CONFIG_GET_3801_PARAM_init);
    EXPECT_EQ(
        body("3801", camera, 2),
        "<IPCINFO\nProtocol=\"\"\nIPAddress=\"\"\nUsername=\"\"\nPassword=\"\"\nCtrlPort=\"-1\"\nSN=\"\"\n"
        "OsdName=\"\"\nIpcVer=\"\"\nMacAddress=\"\"\nNetmask=\"\"\nGateway=\"\"\n/>\n\n");
    camera.CtrlPort = 1;
    camera.DevSubType = 0;
    camera.Feature = 3;
    set(camera.Protocol, "proto");
    set(camera.IPAddress, "ip");
    set(camera.Username, "user");
    set(camera.Password, "pass");
    set(camera.SN, "sn");
    set(camera.OsdName, "osd");
    set(camera.IpcVer, "ver");
    set(camera.MacAddress, "mac");
    set(camera.Netmask, "mask");
    set(camera.Gateway, "gate");
    for (const int kind : {1, 2, 3, 7})
        EXPECT_EQ(body("3801", camera, kind),
                  "<IPCINFO\nProtocol=\"proto\"\nIPAddress=\"ip\"\nUsername=\"user\"\nPassword=\"pass\"\n"
                  "CtrlPort=\"1\"\nSN=\"sn\"\nOsdName=\"osd\"\nIpcVer=\"ver\"\nMacAddress=\"mac\"\nNetmask="
                  "\"mask\"\n"
                  "Gateway=\"gate\"\nDevSubType=\"0\"\nFeature=\"3\"\n/>\n\n");
    EXPECT_TRUE(readsAs(
        "3801",
        "<IPCINFO Feature=\"3\" DevSubType=\"0\" Gateway=\"gate\" Netmask=\"mask\" MacAddress=\"mac\" "
        "IpcVer=\"ver\" OsdName=\"osd\" SN=\"sn\" CtrlPort=\"1\" Password=\"pass\" Username=\"user\" "
        "IPAddress=\"ip\" Protocol=\"proto\" SearchDuration=\"9\"/>",
        camera));
}

TEST(ChannelSearch, AbsentValues)
{
    Search search;
    memset(&search, 0x11, sizeof search);
    EXPECT_EQ(SYSTEM_CONFIG_GET_3801_PARAM_init(&search), 0);
    EXPECT_EQ(search.DevSubType, 0x11111111);
    EXPECT_EQ(search.Feature, 0x1111111111111111u);
    EXPECT_EQ(SYSTEM_CONFIG_GET_3801_PARAM_init(nullptr), -1);
    // An analysed record has them absent, whichever element it was read from.
    for (const char* text : {"<REQUEST_PARAM/>", "<IPCINFO/>"})
        EXPECT_TRUE(readsAs("3801", text, fresh(SYSTEM_CONFIG_GET_3801_PARAM_init)));
}

// --- List ----------------------------------------------------------------------------------------

TEST(ChannelList, Request)
{
    List list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    EXPECT_EQ(body("3803", list, 0), "");
    list.DivideResponse = 0;
    EXPECT_EQ(body("3803", list, 0), "<REQUEST_PARAM\nDivideResponse=\"0\"\n/>\n\n");
    EXPECT_TRUE(readsAs("3803", "<ChannelInfo ChannelId=\"1\"/><REQUEST_PARAM DivideResponse=\"0\"/>", list));
}

TEST(ChannelList, Response)
{
    List list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    list.ChannelCount = 1;
    list.stChannelInfo[0] = channel(1);
    list.stChannelInfo[0].Feature = UINT64_MAX;
    std::string row =
        "<ChannelInfo\nChannelId=\"1\"\nIpAddr=\"ip\"\nDevMode=\"3\"\nProtocol=\"proto\"\n"
        "ChannnelName=\"name\"\nStatus=\"4\"\nCtrlPort =\"2\"\nUsername=\"user\"\nPassword=\"pass\"\n"
        "RtspDomain=\"domain\"\nRtspMainResPath=\"main\"\nRtspMainResPort=\"7\"\n"
        "RtspSubResPath=\"sub\"\nRtspSubResPort=\"8\"\nDevSubType=\"5\"\n/>\n";
    EXPECT_EQ(body("3803", list, 1), "ChannelCount=\"1\"\n" + row + "\n");

    // The bare lines in front aren't read, but attributes of the body are.
    List read = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    read.stChannelInfo[0] = list.stChannelInfo[0];
    read.stChannelInfo[0].Result = -1;
    read.stChannelInfo[0].Feature = 0;
    EXPECT_TRUE(readsAs("3803", "ChannelCount=\"1\"\nEndPackage=\"1\"\n" + row, read));
    read.ChannelCount = 70;
    read.EndPackage = 1;
    std::string text = envelope(kType, "3803", row);
    text.insert(text.find("<MESSAGE_BODY") + 13,
                " EndPackage=\"1\" ChannelCount=\"70\" DivideResponse=\"9\"");
    EXPECT_TRUE(readsAs("3803", text, read));
}

TEST(ChannelList, RowsOfAFreshRecordHaveTypeAndFeature)
{
    List list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    list.ChannelCount = 1;
    list.stChannelInfo[0].ChannelId = 0;
    EXPECT_NE(body("3803", list, 1).find("RtspSubResPort=\"-1\"\nDevSubType=\"0\"\nFeature=\"0\"\n/>"),
              std::string::npos);
    list.stChannelInfo[0].DevSubType = -1;
    EXPECT_NE(body("3803", list, 1).find("RtspSubResPort=\"-1\"\nFeature=\"0\"\n/>"), std::string::npos);
}

TEST(ChannelList, RowWalk)
{
    struct Case
    {
        int32_t count, divide;
        std::vector<int> filled, written;
    };
    const std::vector<Case> cases = {
        {3, -1, {5, 6, 7}, {5, 6, 7}}, // rows before the first don't count
        {3, -1, {5, 7}, {5}},          // a free row ends them
        {2, -1, {5, 6, 7}, {5, 6}},    //
        {2, 0, {5, 6, 7}, {5, 6}},     //
        {10, 2, {0, 1, 2}, {0, 1}},    // the response's own count
        {1, 3, {0, 1, 2}, {0, 1, 2}},  //
        {100, -1, {62, 63}, {62, 63}}, // the array's end
        {INT32_MAX, 1, {63}, {63}},    //
        {-1, -1, {1, 2}, {}},          // no count
        {3, 2, {}, {}},                // nothing there
    };
    for (const Case& test : cases) {
        List list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
        list.ChannelCount = test.count;
        list.DivideResponse = test.divide;
        list.EndPackage = 9;
        for (const int row : test.filled)
            list.stChannelInfo[row].ChannelId = row;
        const std::string text = body("3803", list, 3);
        EXPECT_EQ(channelsOf(text), test.written);
        std::string head = "ChannelCount=\"" + std::to_string(test.count) + "\"\n";
        if (test.divide > 0)
            head += "EndPackage=\"9\"\n";
        head += test.written.empty() ? "\n" : "<ChannelInfo\n";
        EXPECT_EQ(text.substr(0, head.size()), head);
    }
}

// --- Adding --------------------------------------------------------------------------------------

TEST(ChannelAdding, Request)
{
    Added added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    EXPECT_EQ(body("3804", added, 0), "");
    added.iChannelCount = 1;
    added.stChannelInfo[0] = channel(1);
    const std::string text =
        "<ChannelInfo\nChannelId=\"1\"\nIPAddress=\"ip\"\nDevMode=\"3\"\nProtocol=\"proto\"\nCtrlPort "
        "=\"2\"\n"
        "Username=\"user\"\nPassword=\"pass\"\nRtspDomain=\"domain\"\nRtspMainResPath=\"main\"\n"
        "RtspMainResPort=\"7\"\nRtspSubResPath=\"sub\"\nRtspSubResPort=\"8\"\nDevSubType=\"5\"\n"
        "Feature=\"18446744073709551614\"\n/>\n";
    EXPECT_EQ(body("3804", added, 0), text + "\n");

    // A name, a state, a result and the other message's address are passed over.
    added.stChannelInfo[0].Status = added.stChannelInfo[0].Result = -1;
    set(added.stChannelInfo[0].ChannnelName, "");
    EXPECT_TRUE(readsAs(
        "3804",
        "<ChannelInfo Feature=\"18446744073709551614\" DevSubType=\"5\" RtspSubResPort=\"8\" "
        "RtspSubResPath=\"sub\" RtspMainResPort=\"7\" RtspMainResPath=\"main\" RtspDomain=\"domain\" "
        "Password=\"pass\" Username=\"user\" CtrlPort=\"2\" Protocol=\"proto\" DevMode=\"3\" "
        "IPAddress=\"ip\" ChannelId=\"1\" Result=\"6\" Status=\"4\" ChannnelName=\"n\" IpAddr=\"x\"/>",
        added));
}

TEST(ChannelAdding, FreeRowsAndCounts)
{
    Added added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    added.iChannelCount = 3;
    added.stChannelInfo[0] = channel(5);
    added.stChannelInfo[2] = channel(7);
    added.stChannelInfo[3] = channel(8);
    EXPECT_EQ(channelsOf(body("3804", added, 0)), (std::vector<int>{5, 7}));
    EXPECT_EQ(body("3804", added, 2),
              "<ChannelInfo\nChannelId=\"5\"\nIPAddress=\"ip\"\nResult=\"6\"\n/>\n"
              "<ChannelInfo\nChannelId=\"-1\"\nIPAddress=\"\"\nResult=\"-1\"\n/>\n"
              "<ChannelInfo\nChannelId=\"7\"\nIPAddress=\"ip\"\nResult=\"6\"\n/>\n\n");
    added.iChannelCount = 65;
    EXPECT_EQ(channelsOf(body("3804", added, 1)).size(), 64u);
}

TEST(Channels, RowsOnTheWayIn)
{
    std::string rows;
    List list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    Added added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    for (int32_t i = 0; i <= 64; ++i) {
        rows += "<ChannelInfo\nChannelId=\"" + std::to_string(i) + "\"\n/>\n<Other/>";
        if (i < 64)
            list.stChannelInfo[i].ChannelId = added.stChannelInfo[i].ChannelId = i;
    }
    added.iChannelCount = 64;
    EXPECT_TRUE(readsAs("3803", rows, list));
    EXPECT_TRUE(readsAs("3804", rows, added));
}

} // namespace
