#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

std::string deviceOf(const std::string& attributes)
{
    return "<DeviceInfo|" + attributes + "/>|";
}

const std::string kAbsentDevice =
    deviceOf("DevName=''|Mounted='-1'|Total='-1'|Used='-1'|Free='-1'|Percent='-1'|");

TEST(Storage, DevicesOfACamera)
{
    auto storage = fresh(SYSTEM_CONTROL_1014_PARAM_init);
    expectRead(kType, "1014", "<RESPONSE_PARAM/>", storage);
    storage.stDeviceInfo[0] = {"sda", 11, 12, 13, 14, 15};
    storage.stDeviceInfo[2] = {"sdc", 21, 22, 23, 24, 25};
    const std::string text =
        "<RESPONSE_PARAM>|" +
        deviceOf("DevName='sda'|Mounted='11'|Total='12'|Used='13'|Free='14'|Percent='15'|") + kAbsentDevice +
        deviceOf("DevName='sdc'|Mounted='21'|Total='22'|Used='23'|Free='24'|Percent='25'|");
    expectResponse(kType, "1014", storage, text + "</RESPONSE_PARAM>|");
    expectRead(kType, "1014", text + "<DeviceInfo DevName='sdd'/></RESPONSE_PARAM>", storage);
}

TEST(Storage, Format)
{
    auto device = fresh(SYSTEM_CONTROL_1017_PARAM_init);
    set(device.DevName, "device");
    expectRequest(kType, "1017", device, "<REQUEST_PARAM|DevName='device'|/>|");

    auto disk = fresh(SYSTEM_CONTROL_3501_PARAM_init);
    disk = {11, 4000000000U};
    expectRequest(kType, "3501", disk, "<FORMAT_PARAM |DevIndex='11'|VerifyMark='4000000000'|/>|");
}

TEST(Storage, Upload)
{
    auto file = fresh(SYSTEM_CONTROL_1022_PARAM_init);
    file = {11, 12, 4000000000U, -1, "path", ""};
    const std::string request =
        "<REQUEST_PARAM|FileType='11'|FilePath='path'|StartPos='12'|FileLength='4000000000'|";
    EXPECT_EQ(bodyOf(kType, "1022", &file, 0), wire(request + "/>|"));
    expectRead(kType, "1022", request + "Port='13'|Type='14'|AlarmAudioName='audio'|/>", file);
    file.Port = 13;
    set(file.AlarmAudioName, "audio");
    const std::string response = "<RESPONSE_PARAM|Port='13'|Type='11'|/>";
    expectBodies(kType, "1022", &file, request + "AlarmAudioName='audio'|/>|", response);
    file = fresh(SYSTEM_CONTROL_1022_PARAM_init);
    file.FileType = 11;
    file.Port = 13;
    expectRead(kType, "1022", request + "/>" + response, file);
}

// What one direction lacks, it has no body without.
TEST(Storage, Download)
{
    const std::string port = "<RESPONSE_PARAM|Port='13'|Type='11'|";
    for (const char* code : {"1009", "1023", "1024"}) {
        auto file = fresh(SYSTEM_CONTROL_1009_PARAM_init);
        file.Port = 13;
        expectBodies(kType, code, &file, "", "");
        file.FileType = 11;
        expectBodies(kType, code, &file, "", port + "/>|");
        file.Port = -1;
        set(file.FilePath, "path");
        expectBodies(kType, code, &file, "<REQUEST_PARAM|FileName='path'|/>|", "");
        file = {11, 12, 4000000000U, 13, "path", "audio"};
        const std::string request = "<REQUEST_PARAM|FileName='path'|StartPos='12'|/>|";
        const std::string response = port + "FileLength='4000000000'|/>|";
        expectBodies(kType, code, &file, request, response);

        auto asked = fresh(SYSTEM_CONTROL_1023_PARAM_init);
        set(asked.FilePath, "path");
        expectRead(kType, code, response + request, asked);
        auto answered = fresh(SYSTEM_CONTROL_1024_PARAM_init);
        expectRead(kType, code, "<RESPONSE_PARAM FilePath='path' FileName='path'/>", answered);
        answered = {11, 12, 4000000000U, 13, "", ""};
        expectRead(kType, code, port + "StartPos='12'|FileLength='4000000000'|/>", answered);
    }
}

TEST(Storage, DisksOfARecorder)
{
    auto disks = fresh(SYSTEM_CONTROL_3500_PARAM_init);
    expectResponse(kType, "3500", disks, "<RESPONSE_PARAM|DiskNum='-1'|RecordDays='-1'|>|</RESPONSE_PARAM>|");
    disks.DiskNum = 2;
    disks.RecordDays = 12;
    disks.stDisk[0] = {11, 4000000000U, "sda", 13, 14, 15, 16};
    const std::string row = deviceOf("DevIndex='11'|VerifyMark='4000000000'|DevName='sda'|"
                                     "Mounted='16'|Total='13'|Used='14'|Status='15'|");
    expectResponse(kType, "3500", disks,
                   "<RESPONSE_PARAM|DiskNum='2'|RecordDays='12'|>|" + row +
                       deviceOf("DevIndex='4294967295'|VerifyMark='4294967295'|DevName=''|"
                                "Mounted='-1'|Total='4294967295'|Used='4294967295'|"
                                "Status='-1'|") +
                       "</RESPONSE_PARAM>|");

    // The number bounds the rows that are read, and stays what it was.
    disks.DiskNum = 1;
    const std::string rows = ">" + row + row + "</RESPONSE_PARAM>";
    expectRead(kType, "3500", "<RESPONSE_PARAM RecordDays='12' DiskNum='1'" + rows, disks);
    disks.DiskNum = -1;
    disks.stDisk[0] = disks.stDisk[1];
    expectRead(kType, "3500", "<RESPONSE_PARAM RecordDays='12'" + rows, disks);
    disks.DiskNum = 20;
    std::string twenty = "<RESPONSE_PARAM DiskNum='20' RecordDays='12'><Other/>";
    for (uint32_t i = 0; i < 20; ++i) {
        twenty += "<DeviceInfo DevName='" + std::string(40, 'd') + "' Used='" + std::to_string(i) + "'/>";
        if (i < 11) {
            disks.stDisk[i].Used = i;
            set(disks.stDisk[i].DevName, std::string(31, 'd'));
        }
    }
    expectRead(kType, "3500", twenty + "</RESPONSE_PARAM>", disks);
    const std::string written = bodyOf(kType, "3500", &disks, 1);
    EXPECT_EQ(std::count(written.begin(), written.end(), '<'), 13);
}

} // namespace
