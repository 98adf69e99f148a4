#include "support/fields.h"

using namespace test;

namespace {

using Repair = IPC_REPAIR_PARAM;

const std::string kType = "IPC_REPAIR_MESSAGE";

Repair full(const std::string& algorithm)
{
    Repair repair = fresh(IPC_REPAIR_PARAM_init);
    set(repair.IPCMac, "mac");
    set(repair.ReqAddr, "address");
    set(repair.DomainName, "domain");
    set(repair.ServerMac, "server");
    set(repair.ServerIP, "10.0.0.2");
    repair.ServerPort = 11;
    set(repair.Ipaddr, "10.0.0.3");
    set(repair.ClientMac, "client");
    set(repair.FilePath, "path");
    set(repair.RepairVer, "version");
    set(repair.SN, "serial");
    set(repair.Alm, algorithm);
    return repair;
}

const std::string kServer = "ServerMac='server'|ServerIP='10.0.0.2'|ServerPort='11'|";

// One attribute fills two fields.
TEST(IpcRepair, Plain)
{
    Repair repair = full("");
    const std::string request = "<IPC_REPAIR|IPCMac='mac'|IpcIdentify='version'|/>|";
    const std::string response =
        "<IPC_REPAIR|" + kServer + "Ipaddr='10.0.0.3'|IPCMac='client'|RepairVer='version'|/>|";
    expectBodies(kType, "ANY", &repair, request, response);

    repair = fresh(IPC_REPAIR_PARAM_init);
    expectBodies(kType, "1", &repair, "<IPC_REPAIR|IPCMac=''|IpcIdentify=''|/>|",
                 "<IPC_REPAIR|ServerMac=''|ServerIP=''|ServerPort='-1'|Ipaddr=''|IPCMac=''|RepairVer=''|/>|");
    set(repair.IPCMac, "mac");
    set(repair.ClientMac, "mac");
    set(repair.RepairVer, "version");
    expectRead(kType, "1", request, repair);
    expectRead(kType, "1",
               "<IPC_ALG_REPAIR Mac='x' SN='x'/>" + replaced(request, "|/>", " RepairVer='x' SN='x'/>"),
               repair);
    set(repair.RepairVer, "");
    expectRead(kType, "1", replaced(request, "'version'|/>", "'' RepairVer='x' Alm='x'/>"), repair);

    repair = full("");
    for (char* unread : {repair.ReqAddr, repair.DomainName, repair.FilePath, repair.SN})
        memset(unread, 0, strlen(unread));
    set(repair.IPCMac, "client");
    expectRead(kType, "ANY", response, repair);
}

TEST(IpcRepair, Algorithm)
{
    Repair repair = full("algorithm");
    const std::string request = "<IPC_ALG_REPAIR|Mac='mac'|BuildVer='version'|ReqAddr='address'|SN='serial'|"
                                "Alm='algorithm'|DomainName='domain'|/>|";
    const std::string answer = "FilePath='path'|BuildVer='version'|SN='serial'|Alm='algorithm'|";
    const std::string client = "ClientIP='10.0.0.3'|ClientMac='client'|";
    const std::string response = "<IPC_ALG_REPAIR|" + kServer + answer;
    expectBodies(kType, "2", &repair, request, response + client + "/>|");
    expectRead(kType, "2",
               replaced(request, "/>",
                        " IPCMac='x' IpcIdentify='x' RepairVer='x' Ipaddr='x' " + kServer + client +
                            "FilePath='path'/>"),
               repair);

    // Without the client's MAC its address stays too.
    set(repair.ClientMac, "");
    expectBodies(kType, "2", &repair, request, response + "/>|");
    for (char* unread : {repair.IPCMac, repair.ReqAddr, repair.DomainName, repair.Ipaddr})
        memset(unread, 0, strlen(unread));
    expectRead(kType, "2", response + "/>|", repair);
    const Repair absent = fresh(IPC_REPAIR_PARAM_init);
    expectRead(kType, "2", "<IPC_ALG_REPAIR/>", absent);
}

// Bare text, whatever the codec; the code is no matter.
TEST(IpcRepair, ExportedPair)
{
    const Repair repair = full("");
    for (const int mode : {-1, 0, 1})
        EXPECT_EQ(compose(headerOf(kType, "ANY"), &repair, 0, 65536, mode).bytes,
                  envelope(kType, "ANY", wire("<IPC_REPAIR|IPCMac='mac'|IpcIdentify='version'|/>|")));
    char out[128] = "";
    void* result = nullptr;
    resetServices();
    EXPECT_EQ(IpcRepairMessageCompose(nullptr, 0, out, sizeof out), 0);
    EXPECT_EQ(IpcRepairMessageCompose(&repair, 0, out, sizeof out), 0);
    EXPECT_EQ(out, wire("<IPC_REPAIR|IPCMac='mac'|IpcIdentify='version'|/>|"));
    EXPECT_EQ(IpcRepairMessageCompose(&repair, 0, nullptr, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("IPC_REPAIR_MESSAGE put a empty Param\n"));
    EXPECT_EQ(IpcRepairMessageAnalysis(nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("IpcRepairMessageAnalysis put a empty Param\n"));
    EXPECT_EQ(analyseBody(kType, "1", "<REQUEST_PARAM/>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("IpcRepairMessageAnalysis get IPC_REPAIR error\n"));
}

} // namespace
