#include "support/wire.h"

using namespace test;

namespace {

using UserAuth = USER_AUTH_CMD_USER_AUTH_PARAM;

const std::string kType = "USER_AUTH_MESSAGE";

UserAuth full()
{
    return {1, 2, 3, 4, "user", "pass", "vendor", "cap", "session", "group"};
}

TEST(UserAuth, Written)
{
    UserAuth login = full();
    const std::string encrypt = "<ENCRYPT|Capbility='cap'|Version='3'|KeyTypeVer='2'|/>|";
    expectBodies(kType, "", &login,
                 "<USER_AUTH_PARAM|Username='user'|Password='pass'|AuthMethod='1'/>|"
                 "<VENDOR_PARAM VendorId ='vendor' />|" +
                     encrypt,
                 "<USER_AUTH_RESPONSE|Sessionid='session'|Group='group'|MAXChannels='4'|/>|" + encrypt);
    const std::string least =
        "<USER_AUTH_PARAM|Username=''|Password=''|/>|<ENCRYPT|Capbility=''|Version='-1'|/>|";
    login = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    expectBodies(kType, "", &login, least, "");
    login.MAXChannels = 0;
    expectBodies(kType, "", &login, least, "<USER_AUTH_RESPONSE|MAXChannels='0'|/>|");
    login.MAXChannels = -1;
    set(login.Group, "g");
    expectBodies(kType, "", &login, least, "<USER_AUTH_RESPONSE|Group='g'|/>|");
    set(login.Group, "");
    login.KeyTypeVer = 5;
    EXPECT_EQ(bodyOf(kType, "", &login, 1), wire("<ENCRYPT|KeyTypeVer='5'|/>|"));
}

// Three elements in any order, with all that either direction carries; VENDOR_PARAM is passed over.
TEST(UserAuth, ReadsBothDirectionsAtOnce)
{
    UserAuth expected = full();
    set(expected.VendorId, "");
    expectRead(kType, "",
               "<VENDOR_PARAM VendorId='vendor'/><ENCRYPT KeyTypeVer='2' Capbility='cap' Version='3'/>"
               "<USER_AUTH_PARAM AuthMethod='1' Password='pass' Username='user'/>"
               "<USER_AUTH_RESPONSE MAXChannels='4' Group='group' Sessionid='session'/>",
               expected);
    expected = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    expectRead(kType, "", "", expected);
    // Long texts fill their fields, and go out as far as those reach.
    const size_t groupSize = sizeof expected.Group;
    set(expected.Password, std::string(48, 'p'));
    set(expected.Username, "u");
    set(expected.Group, std::string(groupSize, 'g'));
    expectRead(kType, "",
               "<USER_AUTH_PARAM Password='" + std::string(60, 'p') +
                   "' Username='u'/><USER_AUTH_RESPONSE Group='" + std::string(groupSize + 1, 'g') + "'/>",
               expected);
    EXPECT_NE(bodyOf(kType, "", &expected, 0).find("=\"" + std::string(48, 'p') + "\"\n"), std::string::npos);
    EXPECT_EQ(bodyOf(kType, "", &expected, 1),
              wire("<USER_AUTH_RESPONSE|Group='" + std::string(groupSize, 'g') + "'|/>|"));
}

TEST(UserAuth, NoBodyReadsAsKeyTypeZero)
{
    UserAuth expected = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    expected.KeyTypeVer = 0;
    expectRead(kType, "", "<ENCRYPT KeyTypeVer='x'/>", expected);
    resetServices();
    const Analysed analysed =
        analyse("<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"USER_AUTH_MESSAGE\"/></XML_ZELMAR>");
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0);
    EXPECT_TRUE(
        loggedOnly("USER_AUTH_MESSAGE UserAuthMessageAnalysis get MESSAGE_BODY error or No MessageBody\n"));

    void* record = nullptr;
    EXPECT_EQ(UserAuthMessageAnalysis("<a>", &record), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(UserAuthMessageAnalysis(nullptr, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("USER_AUTH_MESSAGE put a empty Param\n"));
    EXPECT_EQ(record, nullptr);
}

} // namespace
