#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

using UserAuth = USER_AUTH_CMD_USER_AUTH_PARAM;

const std::string kType = "USER_AUTH_MESSAGE";

UserAuth fresh()
{
    UserAuth login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    return login;
}

UserAuth full()
{
    UserAuth login = fresh();
    login.AuthMethod = 1;
    login.KeyTypeVer = 2;
    login.Version = 3;
    login.MAXChannels = 4;
    set(login.Username, "user");
    set(login.Password, "pass");
    set(login.VendorId, "vendor");
    set(login.Capbility, "cap");
    set(login.Sessionid, "session");
    set(login.Group, "group");
    return login;
}

std::string body(const UserAuth& login, int kind)
{
    const std::string text = compose(headerOf(kType, ""), &login, kind).text;
    const size_t start = text.find("<MESSAGE_BODY>\n") + sizeof("<MESSAGE_BODY>\n") - 1;
    return text.substr(start, text.find("</MESSAGE_BODY>") - start);
}

TEST(UserAuth, Request)
{
    for (const int kind : {0, 2}) {
        EXPECT_EQ(body(full(), kind),
                  "<USER_AUTH_PARAM\nUsername=\"user\"\nPassword=\"pass\"\nAuthMethod=\"1\"/>\n"
                  "<VENDOR_PARAM VendorId =\"vendor\" />\n"
                  "<ENCRYPT\nCapbility=\"cap\"\nVersion=\"3\"\nKeyTypeVer=\"2\"\n/>\n\n");
        EXPECT_EQ(body(fresh(), kind), "<USER_AUTH_PARAM\nUsername=\"\"\nPassword=\"\"\n/>\n"
                                       "<ENCRYPT\nCapbility=\"\"\nVersion=\"-1\"\n/>\n\n");
    }
}

TEST(UserAuth, Response)
{
    for (const int kind : {1, 3}) {
        EXPECT_EQ(body(full(), kind),
                  "<USER_AUTH_RESPONSE\nSessionid=\"session\"\nGroup=\"group\"\nMAXChannels=\"4\"\n"
                  "/>\n<ENCRYPT\nCapbility=\"cap\"\nVersion=\"3\"\nKeyTypeVer=\"2\"\n/>\n\n");
        EXPECT_EQ(body(fresh(), kind), "");
    }
    UserAuth login = fresh();
    login.MAXChannels = 0;
    EXPECT_EQ(body(login, 1), "<USER_AUTH_RESPONSE\nMAXChannels=\"0\"\n/>\n\n");
    login = fresh();
    set(login.Group, "g");
    EXPECT_EQ(body(login, 1), "<USER_AUTH_RESPONSE\nGroup=\"g\"\n/>\n\n");
    login = fresh();
    login.KeyTypeVer = 5;
    EXPECT_EQ(body(login, 1), "<ENCRYPT\nKeyTypeVer=\"5\"\n/>\n\n");
}

// Three elements in any order, with all that either direction carries; VENDOR_PARAM is passed over.
TEST(UserAuth, ReadsBothDirectionsAtOnce)
{
    const Analysed analysed = analyse(envelope(
        kType, "",
        "<VENDOR_PARAM VendorId=\"vendor\"/><ENCRYPT KeyTypeVer=\"2\" Capbility=\"cap\" Version=\"3\"/>"
        "<USER_AUTH_PARAM AuthMethod=\"1\" Password=\"pass\" Username=\"user\"/>"
        "<USER_AUTH_RESPONSE MAXChannels=\"4\" Group=\"group\" Sessionid=\"session\"/>"));
    ASSERT_EQ(analysed.result, 0);
    UserAuth expected = full();
    set(expected.VendorId, "");
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0);
}

TEST(UserAuth, LongTextsFillTheirFields)
{
    const Analysed analysed = analyse(
        envelope(kType, "", "<USER_AUTH_PARAM Password=\"" + std::string(60, 'p') + "\" Username=\"u\"/>"));
    const auto& login = analysed.as<UserAuth>();
    EXPECT_EQ(get(login.Password), std::string(48, 'p'));
    EXPECT_EQ(get(login.Username), "u");
    EXPECT_NE(body(login, 0).find("Password=\"" + std::string(48, 'p') + "\"\n"), std::string::npos);
}

TEST(UserAuth, NoBodyReadsAsKeyTypeZero)
{
    resetServices();
    const Analysed analysed =
        analyse("<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"USER_AUTH_MESSAGE\"/></XML_ZELMAR>");
    ASSERT_EQ(analysed.result, 0);
    UserAuth expected = fresh();
    expected.KeyTypeVer = 0;
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0);
    EXPECT_TRUE(
        loggedOnly("USER_AUTH_MESSAGE UserAuthMessageAnalysis get MESSAGE_BODY error or No MessageBody\n"));
    const Analysed empty = analyse(envelope(kType, "", ""));
    EXPECT_EQ(empty.as<UserAuth>().KeyTypeVer, -1);
    const Analysed noNumber = analyse(envelope(kType, "", "<ENCRYPT KeyTypeVer=\"x\"/>"));
    EXPECT_EQ(noNumber.as<UserAuth>().KeyTypeVer, 0);
}

TEST(UserAuth, ExportedPair)
{
    const UserAuth login = fresh();
    char out[96];
    EXPECT_EQ(UserAuthMessageCompose(&login, 0, out, sizeof out), 0);
    EXPECT_STREQ(
        out,
        "<USER_AUTH_PARAM\nUsername=\"\"\nPassword=\"\"\n/>\n<ENCRYPT\nCapbility=\"\"\nVersion=\"-1\"\n/>\n");
    EXPECT_EQ(UserAuthMessageCompose(&login, 0, out, static_cast<int>(strlen(out))), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(UserAuthMessageCompose(nullptr, 0, out, 1), 0);

    resetServices();
    EXPECT_EQ(UserAuthMessageCompose(&login, 0, nullptr, 5), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("USER_AUTH_MESSAGE put a empty Param\n"));
    EXPECT_EQ(UserAuthMessageCompose(nullptr, 0, out, 0), ZEL_ERR_BAD_PARAM);

    void* record = nullptr;
    resetServices();
    EXPECT_EQ(UserAuthMessageAnalysis(nullptr, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("USER_AUTH_MESSAGE put a empty Param\n"));
    EXPECT_EQ(UserAuthMessageAnalysis("<a/>", nullptr), ZEL_ERR_BAD_PARAM);
    resetServices();
    EXPECT_EQ(UserAuthMessageAnalysis("<a>", &record), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(record, nullptr);
}

} // namespace
