#include "zel_protocol/ipc_repair.h"

#include "core/families.h"

namespace zel {

namespace {

using Repair = IPC_REPAIR_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void server(Side& side, Repair& record)
{
    attribute(side, "ServerMac", record.ServerMac);
    attribute(side, "ServerIP", record.ServerIP);
    attribute(side, "ServerPort", record.ServerPort);
}

void client(Side& side, Repair& record)
{
    attribute(side, "ClientIP", record.Ipaddr);
    attribute(side, "ClientMac", record.ClientMac);
}

// What is received doesn't tell its direction: all that its form has is read.
void plain(Side& side, Repair& record)
{
    attribute(side, "IPCMac", record.IPCMac);
    if (side.writes()) {
        attribute(side, "IpcIdentify", record.RepairVer);
        return;
    }
    if (!readAttribute(side, "IpcIdentify", record.RepairVer))
        attribute(side, "RepairVer", record.RepairVer);
    server(side, record);
    attribute(side, "Ipaddr", record.Ipaddr);
    attribute(side, "IPCMac", record.ClientMac);
}

void algorithm(Side& side, Repair& record)
{
    attribute(side, "Mac", record.IPCMac);
    attribute(side, "BuildVer", record.RepairVer);
    attribute(side, "ReqAddr", record.ReqAddr);
    attribute(side, "SN", record.SN);
    attribute(side, "Alm", record.Alm);
    attribute(side, "DomainName", record.DomainName);
    if (side.writes())
        return;
    server(side, record);
    attribute(side, "FilePath", record.FilePath);
    client(side, record);
}

void response(Side& side, Repair& record)
{
    const bool isAlgorithm = isSet(record.Alm);
    if (const Element repair = elementIf(!isAlgorithm, side, "IPC_REPAIR")) {
        server(side, record);
        attribute(side, "Ipaddr", record.Ipaddr);
        attribute(side, "IPCMac", record.ClientMac);
        attribute(side, "RepairVer", record.RepairVer);
    }
    if (const Element repair = elementIf(isAlgorithm, side, "IPC_ALG_REPAIR")) {
        server(side, record);
        attribute(side, "FilePath", record.FilePath);
        attribute(side, "BuildVer", record.RepairVer);
        attribute(side, "SN", record.SN);
        attribute(side, "Alm", record.Alm);
        if (side.takes(isSet(record.ClientMac)))
            client(side, record);
    }
}

// --- Message -------------------------------------------------------------------------------------

enum RepairPart
{
    kPlain,
    kAlgorithm,
    kResponse
};

// The algorithm's name selects the form.
int composeRepair(const MessageRow& row, Outbound& outbound)
{
    const RepairPart request = isSet(as<Repair>(outbound.record).Alm) ? kAlgorithm : kPlain;
    writePart(row.parts[isRequest(outbound.kind) ? request : kResponse], outbound);
    return 0;
}

constexpr MessageRow kRepair =
    message<IPC_REPAIR_PARAM_init>("IpcRepairMessageAnalysis", within<plain>("IPC_REPAIR", Kinds::kRequests),
                                   within<algorithm>("IPC_ALG_REPAIR", Kinds::kRequests),
                                   written<response>(Kinds::kNotRequests))
        .reporting("IPC_REPAIR")
        .composedBy(composeRepair);

constexpr CodeRow kCodes[] = {{0, &kRepair, nullptr, 0, ""}};

} // namespace

extern constexpr Family kIpcRepairFamily = Family("IPC_REPAIR_MESSAGE", kCodes, composeOnly, analyseOnly)
                                               .loggedAs("IPC_REPAIR_MESSAGE", "IpcRepairMessageAnalysis")
                                               .bare();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int IPC_REPAIR_PARAM_init(IPC_REPAIR_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record);
        zel::setAbsent(record.ServerPort);
    });
}

int IpcRepairMessageCompose(const void* record, int kind, char* buf, int len)
{
    return zel::composeBody(zel::kIpcRepairFamily, record, kind, "", buf, len);
}

int IpcRepairMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kIpcRepairFamily, text, "", result);
}
