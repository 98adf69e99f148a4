#include "support/fields.h"

using namespace test;

namespace {

using Address = SYSTEM_CONFIG_SET_3809_PARAM;

const std::string kType = "SYSTEM_CONFIG_SET_MESSAGE";

TEST(ChannelCommands, OneElement)
{
    auto deleted = fresh(SYSTEM_CONFIG_SET_3805_PARAM_init);
    expectRequest(kType, "3805", deleted, "<REQUEST_PARAM|ChannelId='-1'|/>|");
    deleted.ChannelId = 11;
    expectRequest(kType, "3805", deleted, "<REQUEST_PARAM|ChannelId='11'|/>|");

    auto switched = fresh(SYSTEM_CONFIG_SET_3806_PARAM_init);
    expectRequest(kType, "3806", switched, "<REQUEST_PARAM|ChannelId1='-1'|ChannelId2='-1'|/>|");
    switched.ChannelId1 = 11;
    expectRead(kType, "3806", "<REQUEST_PARAM ChannelId1='11'/>", switched);
    switched.ChannelId2 = 12;
    expectRequest(kType, "3806", switched, "<REQUEST_PARAM|ChannelId1='11'|ChannelId2='12'|/>|");

    auto pictures = fresh(SYSTEM_CONFIG_SET_3807_PARAM_init);
    expectRequest(kType, "3807", pictures, "<REQUEST_PARAM|PicNum='-1'|/>|");
    pictures.PicNum = 11;
    expectRequest(kType, "3807", pictures, "<REQUEST_PARAM|PicNum='11'|/>|");
    auto page = fresh(SYSTEM_CONFIG_SET_3808_PARAM_init);
    expectRequest(kType, "3808", page, "<REQUEST_PARAM|PrevOrNext='-1'|/>|");
    page.PrevOrNext = 11;
    expectRequest(kType, "3808", page, "<REQUEST_PARAM|PrevOrNext='11'|/>|");
}

Address address()
{
    return {11, 12, "proto", "new", "old", "user", "pass", "serial", "mac", "mask", "gate", "dns1", "dns2"};
}

const std::string kAddress =
    "Protocol='proto'|IPAddressOld='old'|IPAddressNew='new'|Username='user'|Password='pass'|SN='serial'|"
    "MacAddress='mac'|Netmask='mask'|Gateway='gate'|DNS1='dns1'|DNS2='dns2'|CtrlPort='11'|/>|";
const std::string kNoAddress =
    "Protocol=''|IPAddressOld=''|IPAddressNew=''|Username=''|Password=''|SN=''|MacAddress=''|Netmask=''|"
    "Gateway=''|DNS1=''|DNS2=''|CtrlPort='-1'|/>|";

const std::string kResult = "<REQUEST_PARAM|IsChangIP='12'|IPAddressOld='old'|IPAddressNew='new'|"
                            "Netmask='mask'|Gateway='gate'|/>|";

TEST(AddressChange, OneCamera)
{
    auto change = fresh(SYSTEM_CONFIG_SET_3809_PARAM_init);
    expectBodies(kType, "3809", &change, "<REQUEST_PARAM|" + kNoAddress,
                 "<REQUEST_PARAM|IsChangIP='-1'|IPAddressOld=''|IPAddressNew=''|Netmask=''|Gateway=''|/>|");
    number(12, change.IsChangIP);
    set(change.IPAddressOld, "old");
    set(change.IPAddressNew, "new");
    set(change.Netmask, "mask");
    set(change.Gateway, "gate");
    expectRead(kType, "3809", kResult, change);
    change = address();
    expectBodies(kType, "3809", &change, "<REQUEST_PARAM|" + kAddress, kResult);
    expectRead(kType, "3809", "<REQUEST_PARAM IsChangIP='12' " + kAddress, change);
}

// Each direction has an emptiness of its own that leaves a row out, and rows of an answer aren't found.
TEST(AddressChange, ManyCameras)
{
    auto batch = fresh(SYSTEM_CONFIG_SET_3810_PARAM_init);
    batch.stIpc[0] = batch.stIpc[1] = batch.stIpc[2] = address();
    expectBodies(kType, "3810", &batch, "", "");
    batch.iChannelCount = 2;
    const std::string channel = "<ChannelInfo|" + kAddress;
    expectBodies(kType, "3810", &batch, channel + channel, kResult + kResult);
    batch.iChannelCount = 3;
    set(batch.stIpc[0].Protocol, "");
    set(batch.stIpc[1].IPAddressOld, "");
    batch.stIpc[2].IsChangIP = 13;
    expectBodies(kType, "3810", &batch, replaced(channel, "'old'", "''") + channel,
                 kResult + replaced(kResult, "12", "13"));

    batch = fresh(SYSTEM_CONFIG_SET_3810_PARAM_init);
    batch.stIpc[0] = batch.stIpc[2] = address();
    batch.stIpc[0].IsChangIP = -1;
    expectRead(kType, "3810",
               channel + "<Other/><ChannelInfo/>" +
                   replaced(channel, "CtrlPort", "IsChangIP='12' iChannelCount='9' CtrlPort"),
               batch);
}

TEST(AddressChange, FromOneAddressOn)
{
    auto batch = fresh(SYSTEM_CONFIG_SET_3812_PARAM_init);
    const std::string none =
        "<REQUEST_PARAM|Username=''|Password=''|IPAddressStart=''|Netmask=''|Gateway=''|/>|";
    expectBodies(kType, "3812", &batch, none, "");
    batch.iChannelCount = 0;
    expectRead(kType, "3812", none, batch);
    batch.iChannelCount = 2;
    set(batch.IPAddressStart, "start");
    set(batch.Username, "user");
    set(batch.Password, "pass");
    set(batch.Netmask, "mask");
    set(batch.Gateway, "gate");
    batch.stIpcAddress[0] = {11, "proto", "ip", "serial", "mask1", "gate1"};
    expectRequest(kType, "3812", batch,
                  "<REQUEST_PARAM|Username='user'|Password='pass'|IPAddressStart='start'|Netmask='mask'|"
                  "Gateway='gate'|/>|<ChannelInfo|Protocol='proto'|IPAddress='ip'|SN='serial'|"
                  "Netmask='mask1'|Gateway='gate1'|CtrlPort='11'|/>|<ChannelInfo|Protocol=''|IPAddress=''|"
                  "SN=''|Netmask=''|Gateway=''|CtrlPort='-1'|/>|");
}

// The count stands bare in front, where it isn't read; that of the body is.
TEST(ChannelCommands, DeletingMany)
{
    auto deleted = fresh(SYSTEM_CONFIG_SET_3811_PARAM_init);
    expectBodies(kType, "3811", &deleted, "ChannelCount='-1'|", "");
    deleted.ChannelCount = 2;
    deleted.ChannelId[0] = 11;
    deleted.ChannelId[1] = 12;
    const std::string text =
        "ChannelCount='2'|<ChannelInfo|ChannelId='11'|/>|<ChannelInfo|ChannelId='12'|/>|";
    expectRequest(kType, "3811", deleted, text);
    expectRead(kType, "3811", replaced(text, "'2'", "'9'"), deleted);
    for (const auto& [attribute, count] : {std::pair("5", 5), std::pair("-1", 2), std::pair("0", 0)}) {
        deleted.ChannelCount = count;
        const Analysed analysed =
            analyse(replaced(envelope(kType, "3811", wire(text)), "<MESSAGE_BODY>",
                             std::string("<MESSAGE_BODY ChannelCount=\"") + attribute + "\">"));
        ASSERT_EQ(analysed.result, 0);
        EXPECT_EQ(memcmp(analysed.record.get(), &deleted, sizeof deleted), 0) << attribute;
    }
}

TEST(ChannelChanges, SixtyFourRows)
{
    auto many = fresh(SYSTEM_CONFIG_SET_3810_PARAM_init);
    auto numbered = fresh(SYSTEM_CONFIG_SET_3812_PARAM_init);
    auto deleted = fresh(SYSTEM_CONFIG_SET_3811_PARAM_init);
    std::string rows = "<REQUEST_PARAM/>";
    for (int32_t i = 0; i <= 64; ++i) {
        const std::string n = "='" + std::to_string(i) + "'";
        rows += "<ChannelInfo CtrlPort" + n + " Protocol='p' IPAddressOld='o' ChannelId" + n + "/><Other/>";
        if (i == 64)
            break;
        many.stIpc[i].CtrlPort = numbered.stIpcAddress[i].CtrlPort = deleted.ChannelId[i] = i;
        set(many.stIpc[i].Protocol, "p");
        set(many.stIpc[i].IPAddressOld, "o");
        set(numbered.stIpcAddress[i].Protocol, "p");
    }
    numbered.iChannelCount = deleted.ChannelCount = 64;
    expectRead(kType, "3810", rows, many);
    expectRead(kType, "3812", rows, numbered);
    expectRead(kType, "3811", rows, deleted);

    // A count above the array's size ends with the array.
    many.iChannelCount = numbered.iChannelCount = deleted.ChannelCount = INT32_MAX;
    const auto rowsOf = [](const char* code, const void* record, int kind) {
        const std::string text = bodyOf(kType, code, record, kind);
        return std::count(text.begin(), text.end(), '<');
    };
    EXPECT_EQ(rowsOf("3810", &many, 0), 64);
    EXPECT_EQ(rowsOf("3810", &many, 1), 64);
    EXPECT_EQ(rowsOf("3812", &numbered, 0), 65);
    EXPECT_EQ(rowsOf("3811", &deleted, 0), 64);
    EXPECT_EQ(bodyOf(kType, "3811", &deleted, 0).find("ChannelCount=\"2147483647\"\n"), 0u);
}

TEST(ChannelChanges, RequiredElements)
{
    const char* const all[][3] = {
        {"3805", "NvrChannelDelChannel", "REQUEST_PARAM"},
        {"3806", "NvrChannelSwitchChannel", "REQUEST_PARAM"},
        {"3807", "NvrChannelPicsSelect", "REQUEST_PARAM"},
        {"3808", "NvrChannelPicsPageChange", "REQUEST_PARAM"},
        {"3809", "NvrChannelModifyIpcIp", "REQUEST_PARAM"},
        {"3810", "NvrChannelBatchModifyIpcIp", "ChannelInfo"},
        {"3811", "NvrChannelBatchDelIpc", "ChannelInfo"},
        {"3812", "NvrChannelBatchModifyIpcIpV2", "REQUEST_PARAM"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("SystemConfig_") + leaf, element,
                      element[0] == 'C' ? "<REQUEST_PARAM/>" : "<ChannelInfo/><RESPONSE_PARAM/>");
}

} // namespace
