#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

SYSTEM_CONFIG_GET_3801_PARAM freshSearch()
{
    auto search = fresh(SYSTEM_CONFIG_GET_3801_PARAM_init);
    // The init leaves these two alone.
    EXPECT_EQ(search.DevSubType, 0x11111111);
    EXPECT_EQ(search.Feature, 0x1111111111111111u);
    memset(&search, 0xFF, sizeof search);
    SYSTEM_CONFIG_GET_3801_PARAM_init(&search);
    return search;
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

TEST(ChannelSearch, BothWays)
{
    auto search = freshSearch();
    EXPECT_EQ(bodyOf(kType, "3801", &search, 0), "");
    const std::string least = "<IPCINFO|Protocol=''|IPAddress=''|Username=''|Password=''|CtrlPort='-1'|SN=''|"
                              "OsdName=''|IpcVer=''|MacAddress=''|Netmask=''|Gateway=''|/>|";
    EXPECT_EQ(bodyOf(kType, "3801", &search, 2), wire(least));
    for (const std::string& text : {std::string("<REQUEST_PARAM/>"), std::string("<IPCINFO/>"), least})
        expectRead(kType, "3801", text, search);
    search.SearchDuration = 5;
    EXPECT_EQ(bodyOf(kType, "3801", &search, 0), wire("<REQUEST_PARAM|SearchDuration='5'|/>|"));
    expectRead(kType, "3801", "<IPCINFO SN='x'/><REQUEST_PARAM SN='x' SearchDuration='5'/>", search);

    search = {-1, 1, 0, 3, "proto", "ip", "user", "pass", "sn", "osd", "ver", "mac", "mask", "gate"};
    const std::string text =
        "<IPCINFO|Protocol='proto'|IPAddress='ip'|Username='user'|Password='pass'|CtrlPort='1'|SN='sn'|"
        "OsdName='osd'|IpcVer='ver'|MacAddress='mac'|Netmask='mask'|Gateway='gate'|DevSubType='0'|"
        "Feature='3'|/>|";
    for (const int kind : {1, 2, 3, 7})
        EXPECT_EQ(bodyOf(kType, "3801", &search, kind), wire(text));
    const Analysed analysed = analyseBody(kType, "3801", "<IPCINFO SearchDuration='9' " + text.substr(9));
    EXPECT_EQ(bodyOf(kType, "3801", analysed.record.get(), 0), "");
    EXPECT_EQ(bodyOf(kType, "3801", analysed.record.get(), 1), wire(text));
}

TEST(ChannelList, BothWays)
{
    auto list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    EXPECT_EQ(bodyOf(kType, "3803", &list, 0), "");
    list.DivideResponse = 0;
    EXPECT_EQ(bodyOf(kType, "3803", &list, 0), wire("<REQUEST_PARAM|DivideResponse='0'|/>|"));
    expectRead(kType, "3803", "<ChannelInfo ChannelId='1'/><REQUEST_PARAM DivideResponse='0'/>", list);

    // Rows of a fresh record have a type and a feature.
    list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    list.ChannelCount = 1;
    list.stChannelInfo[0].ChannelId = 0;
    EXPECT_NE(bodyOf(kType, "3803", &list, 1).find(wire("RtspSubResPort='-1'|DevSubType='0'|Feature='0'|/>")),
              std::string::npos);
    list.stChannelInfo[0] = channel(1);
    list.stChannelInfo[0].Feature = UINT64_MAX;
    const std::string row =
        "<ChannelInfo|ChannelId='1'|IpAddr='ip'|DevMode='3'|Protocol='proto'|ChannnelName='name'|Status='4'|"
        "CtrlPort ='2'|Username='user'|Password='pass'|RtspDomain='domain'|RtspMainResPath='main'|"
        "RtspMainResPort='7'|RtspSubResPath='sub'|RtspSubResPort='8'|DevSubType='5'|/>|";
    EXPECT_EQ(bodyOf(kType, "3803", &list, 1), wire("ChannelCount='1'|" + row));

    // The bare lines in front aren't read, but attributes of the body are.
    list.ChannelCount = -1;
    list.stChannelInfo[0].Result = -1;
    list.stChannelInfo[0].Feature = 0;
    expectRead(kType, "3803", "ChannelCount='1'|EndPackage='1'|" + row, list);
    list.ChannelCount = 70;
    list.EndPackage = 1;
    std::string text = envelope(kType, "3803", wire(row));
    text.insert(text.find("<MESSAGE_BODY") + 13,
                " EndPackage=\"1\" ChannelCount=\"70\" DivideResponse=\"9\"");
    const Analysed analysed = analyse(text);
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(memcmp(analysed.record.get(), &list, sizeof list), 0);
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
        auto list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
        list.ChannelCount = test.count;
        list.DivideResponse = test.divide;
        list.EndPackage = 9;
        for (const int row : test.filled)
            list.stChannelInfo[row].ChannelId = row;
        const std::string text = bodyOf(kType, "3803", &list, 3);
        EXPECT_EQ(channelsOf(text), test.written);
        const std::string head = "ChannelCount=\"" + std::to_string(test.count) + "\"\n" +
                                 (test.divide > 0 ? "EndPackage=\"9\"\n" : "");
        EXPECT_EQ(text.substr(0, text.find('<')), head);
    }
}

TEST(ChannelAdding, BothWays)
{
    auto added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    EXPECT_EQ(bodyOf(kType, "3804", &added, 0), "");
    added.iChannelCount = 1;
    added.stChannelInfo[0] = channel(1);
    const std::string text =
        "<ChannelInfo|ChannelId='1'|IPAddress='ip'|DevMode='3'|Protocol='proto'|CtrlPort ='2'|"
        "Username='user'|Password='pass'|RtspDomain='domain'|RtspMainResPath='main'|RtspMainResPort='7'|"
        "RtspSubResPath='sub'|RtspSubResPort='8'|DevSubType='5'|Feature='18446744073709551614'|/>|";
    EXPECT_EQ(bodyOf(kType, "3804", &added, 0), wire(text));

    // A name, a state, a result and the other message's address are passed over.
    added.stChannelInfo[0].Status = added.stChannelInfo[0].Result = -1;
    set(added.stChannelInfo[0].ChannnelName, "");
    expectRead(kType, "3804",
               "<ChannelInfo Result='6' Status='4' ChannnelName='n' IpAddr='x' " + text.substr(13), added);

    added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    added.iChannelCount = 3;
    added.stChannelInfo[0] = channel(5);
    added.stChannelInfo[2] = channel(7);
    added.stChannelInfo[3] = channel(8);
    EXPECT_EQ(channelsOf(bodyOf(kType, "3804", &added, 0)), (std::vector<int>{5, 7}));
    EXPECT_EQ(bodyOf(kType, "3804", &added, 2),
              wire("<ChannelInfo|ChannelId='5'|IPAddress='ip'|Result='6'|/>|"
                   "<ChannelInfo|ChannelId='-1'|IPAddress=''|Result='-1'|/>|"
                   "<ChannelInfo|ChannelId='7'|IPAddress='ip'|Result='6'|/>|"));
    added.iChannelCount = 65;
    EXPECT_EQ(channelsOf(bodyOf(kType, "3804", &added, 1)).size(), 64u);
}

TEST(Channels, RowsOnTheWayIn)
{
    std::string rows;
    auto list = fresh(SYSTEM_CONFIG_GET_3803_PARAM_init);
    auto added = fresh(SYSTEM_CONFIG_SET_3804_PARAM_init);
    for (int32_t i = 0; i <= 64; ++i) {
        rows += "<ChannelInfo|ChannelId='" + std::to_string(i) + "'|/>|<Other/>";
        if (i < 64)
            list.stChannelInfo[i].ChannelId = added.stChannelInfo[i].ChannelId = i;
    }
    added.iChannelCount = 64;
    expectRead(kType, "3803", rows, list);
    expectRead(kType, "3804", rows, added);
}

} // namespace
