// What an analysis tolerates: nothing is said of good messages, and each fault is found at its place.
#include "inspect/check.h"

#include <chrono>
#include <set>

#include <gtest/gtest.h>

#include "inspect/json.h"
#include "inspect/sample.h"
#include "run_zel.h"
#include "zel_protocol/zel_protocol.h"

namespace {

using namespace inspect;
using test::Folder;
using test::Ran;
using test::runZel;

Analysed analysed(const Bytes& payload)
{
    Cipher plain;
    return analyse(payload, plain);
}

Bytes sampleText(int index, int kind)
{
    Cipher plain;
    const Composed composed = compose(sampleMessage(index, kind), plain);
    EXPECT_EQ(composed.status, 0) << nameOf(index) << " " << composed.problem;
    ZEL_CATALOGUE_ENTRY entry{};
    ZelProtocolCatalogueEntry(index, &entry);
    return composed.bytes.substr(entry.is_bare ? 0 : ZEL_FRAME_HEAD_SIZE);
}

// "line:column finding path", a line for each.
std::string findingsOf(const Bytes& payload)
{
    const Analysed message = analysed(payload);
    EXPECT_TRUE(message.status == 0 || message.isHeaderAlone()) << message.status;
    std::string all;
    for (const Remark& remark : check(message, false))
        all += std::to_string(remark.line) + ":" + std::to_string(remark.column) + " " +
               std::string(nameOf(remark.finding)) + " " + remark.path + "\n";
    return all;
}

// All messages that we compose ourselves, but for what only one direction has.
TEST(Check, HasNothingToSayOfGoodMessages)
{
    const std::set<std::string> odd = {
        "DEVICE_REPORT_MESSAGE/3901 unknown-element MESSAGE_BODY/xml/cmd",
        "SYSTEM_CONFIG_SET_MESSAGE/3810 unknown-element MESSAGE_BODY/REQUEST_PARAM",
    };
    std::set<std::string> seen;
    int same = 0;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index)
        for (const int kind : {ZEL_KIND_REQUEST, ZEL_KIND_RESPONSE}) {
            const Analysed message = analysed(sampleText(index, kind));
            if (message.status != 0 && !message.isHeaderAlone())
                continue;
            const std::vector<Remark> remarks = check(message, false);
            same += remarks.empty();
            for (const Remark& remark : remarks)
                if (remark.finding != Finding::kNotTheSameBytes)
                    seen.insert(nameOf(index) + " " + std::string(nameOf(remark.finding)) + " " +
                                remark.path);
        }
    EXPECT_EQ(seen, odd);
    EXPECT_GT(same, 500);
}

struct Fault
{
    const char* what;
    const char* with;
    const char* findings; // "N:N not-the-same-bytes" apart, which most of them bring along
};

Bytes withFault(Bytes text, const Fault& fault)
{
    const std::size_t at = text.find(fault.what);
    EXPECT_NE(at, std::string::npos) << fault.what;
    return text.replace(at, std::string(fault.what).size(), fault.with);
}

std::string withoutDifference(std::string findings)
{
    for (std::size_t at = 0; (at = findings.find("not-the-same-bytes")) != std::string::npos;) {
        const std::size_t begin = at == 0 ? 0 : findings.rfind('\n', at) + 1;
        findings.erase(begin, findings.find('\n', at) + 1 - begin);
    }
    return findings;
}

TEST(Check, FindsEachFaultAtItsPlace)
{
    const Bytes text = sampleText(findMessages("SYSTEM_CONFIG_GET_MESSAGE/500").front(), ZEL_KIND_RESPONSE);
    ASSERT_EQ(findingsOf(text), "");
    const Fault faults[] = {
        {"Brightness=\"50\"", "Brightness=\"bright\"",
         "20:13 no-number MESSAGE_BODY/MediaConfig/Video/Capture@Brightness\n"},
        {"Brightness=\"50\"", "Brightness=\"50%\"",
         "20:13 no-number MESSAGE_BODY/MediaConfig/Video/Capture@Brightness\n"},
        {"Brightness=\"50\"", "Brightness=\"4294967295\"",
         "20:13 beyond-range MESSAGE_BODY/MediaConfig/Video/Capture@Brightness\n"},
        {"HFlip=\"19\"", "HFlip=\"300\"", "30:8 beyond-range MESSAGE_BODY/MediaConfig/Video/Capture@HFlip\n"},
        {"HFlip=\"19\"", "HFlip=\"-1\"", ""},
        {"HFlip=\"19\"\n", "", "17:2 missing-attribute MESSAGE_BODY/MediaConfig/Video/Capture@HFlip\n"},
        {"HFlip=\"19\"", "HFlip=\"19\" HFlip=\"20\"",
         "30:12 repeated-attribute MESSAGE_BODY/MediaConfig/Video/Capture@HFlip\n"},
        {"HFlip=\"19\"", "HFlip=\"19\" Hflop=\"1\"",
         "30:12 unknown-attribute MESSAGE_BODY/MediaConfig/Video/Capture@Hflop\n"},
        {"<JpegConfig", "<Vendor><a b=\"1\"/></Vendor><JpegConfig",
         "133:2 unknown-element MESSAGE_BODY/MediaConfig/Video/Vendor\n"},
        {"<AdvanceEncodeConfig", "<EncodeConfig/><AdvanceEncodeConfig",
         "69:2 rows-beyond-array MESSAGE_BODY/MediaConfig/Video/Encode/EncodeConfig\n"},
        {"EncodeFormat=\"text\"", "EncodeFormat=\"sixteen &amp; more..\"",
         "54:15 text-cut MESSAGE_BODY/MediaConfig/Video/Encode/EncodeConfig@EncodeFormat\n"},
        {"EncodeFormat=\"text\"", "EncodeFormat=\"&lt;fifteen bytes&gt;\"", ""},
        {"WDRStartTime=\"51:52:53\"", "WDRStartTime=\"noon\"",
         "72:15 no-number MESSAGE_BODY/MediaConfig/Video/Encode/AdvanceEncodeConfig@WDRStartTime\n"},
        {"Msg_code=\"500\"", "Msg_code=\"+500\"", "5:11 no-number MESSAGE_HEADER@Msg_code\n"},
        {"Msg_flag=\"0\"", "Msg_flag=\"0\" Msg_flog=\"0\"",
         "6:14 unknown-attribute MESSAGE_HEADER@Msg_flog\n"},
        {"<MESSAGE_BODY>", "<MESSAGE_TAIL/><MESSAGE_BODY>", "8:2 unknown-element MESSAGE_TAIL\n"},
    };
    for (const Fault& fault : faults)
        EXPECT_EQ(withoutDifference(findingsOf(withFault(text, fault))), fault.findings) << fault.with;
    // What is told of no other way.
    EXPECT_EQ(findingsOf(withFault(text, {"HFlip=\"19\"", "HFlip='19'", nullptr})),
              "30:7 not-the-same-bytes \n");
}

TEST(Check, LooksAtMessagesWithoutARecordToo)
{
    const std::string query =
        "<XML_ZELMAR>\n<MESSAGE_HEADER\nMsg_type=\"SYSTEM_CONFIG_GET_MESSAGE\"\nMsg_code=\"500\"\n"
        "Msg_flag=\"\"\n/>\n<MESSAGE_BODY>\n<MediaConfig/>\n</MESSAGE_BODY>\n</XML_ZELMAR>";
    const Analysed message = analysed(query);
    if (message.isHeaderAlone()) {
        EXPECT_EQ(withoutDifference(findingsOf(query)), "8:2 unknown-element MESSAGE_BODY/MediaConfig\n");
    }
    EXPECT_TRUE(check(analysed("<XML_ZELMAR></XML_ZELMAR>"), false).empty());
    EXPECT_TRUE(check(analysed("junk"), false).empty());
}

// A text of the largest size that somebody may send, of whatever costs most.
TEST(Check, TakesTimeInStepWithTheText)
{
    const Bytes text = sampleText(findMessages("NVR_REPLAY_MESSAGE/3010").front(), ZEL_KIND_REQUEST);
    for (const char* const piece : {"<a/>", "<a b=\"1\">c</a>", "<!-- < -->", "x=\"&amp;\" "}) {
        std::string many;
        while (many.size() < 1u << 20)
            many += piece;
        const bool isAttribute = piece[0] == 'x';
        const Bytes whole = withFault(
            text, isAttribute ? Fault{"<REQUEST_PARAM\n", ("<REQUEST_PARAM\n" + many).c_str(), nullptr}
                              : Fault{"<REQUEST_PARAM\n", (many + "<REQUEST_PARAM\n").c_str(), nullptr});
        const Analysed message = analysed(whole);
        const auto begin = std::chrono::steady_clock::now();
        check(message, false);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10)) << piece;
    }
}

TEST(CheckCommand, TellsLikeACompiler)
{
    const Folder folder;
    Message login = makeMessage(findMessages("USER_AUTH_MESSAGE").front(), ZEL_KIND_REQUEST);
    setField(login, "Password", "very secret", {});
    Cipher plain;
    Bytes frame = compose(login, plain).bytes;
    folder.write("good", frame);
    EXPECT_EQ(runZel(folder, "check good").status, 0);
    EXPECT_EQ(runZel(folder, "check good").out, "");

    const Fault longer = {"very secret",
                          "a secret that is longer than any password may ever become, and a good deal longer "
                          "than that, so that it is cut",
                          nullptr};
    folder.write("bad.txt", withFault(frame.substr(ZEL_FRAME_HEAD_SIZE), longer) + "\nbetween\n");
    const Ran human = runZel(folder, "check bad.txt good");
    EXPECT_EQ(human.status, 1);
    EXPECT_EQ(human.out.substr(0, human.out.find(" has ")),
              "bad.txt: byte 0: USER_AUTH_MESSAGE: line 11, column 11: text-cut: "
              "MESSAGE_BODY/USER_AUTH_PARAM@Password ***")
        << human.out << human.err;
    EXPECT_EQ(human.out.find("secret"), std::string::npos);
    const Json line = parseJson([&] {
        const std::string out = runZel(folder, "check --json --show-secrets bad.txt").out;
        return out.substr(0, out.find('\n'));
    }());
    EXPECT_EQ(line["finding"], "text-cut");
    EXPECT_EQ(line["message"], "USER_AUTH_MESSAGE");
    EXPECT_NE(line["detail"].get<std::string>().find("a secret"), std::string::npos);

    folder.write("cut", frame.substr(0, frame.size() - 3));
    EXPECT_EQ(runZel(folder, "check cut").status, 1);
    EXPECT_EQ(runZel(folder, "check nothing").status, 2);
}

} // namespace
