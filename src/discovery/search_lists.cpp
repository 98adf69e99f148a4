#include "discovery/search_lists.h"

#include "core/records.h"

namespace zel {

void vendorParam(Side& side, char (&vendorId)[40])
{
    if (const Element vendor = elementIf(isSet(vendorId), side, "VENDOR_PARAM", kOnLine))
        attribute(side, "VendorId", vendorId);
}

void lanAddresses(Side& side, SYSTEM_SEARCHIPC_LAN_CONFIG& lan)
{
    attribute(side, "MacAddress", lan.MacAddress);
    attribute(side, "DHCP", lan.DHCP);
    attribute(side, "IPAddress", lan.IPAddress);
    attribute(side, "Netmask", lan.Netmask);
    attribute(side, "Gateway", lan.Gateway);
}

void lanAddressesAndNames(Side& side, SYSTEM_SEARCHIPC_LAN_CONFIG& lan)
{
    lanAddresses(side, lan);
    attribute(side, "DNS1", lan.DNS1);
    attribute(side, "DNS2", lan.DNS2);
}

void clearLanTexts(SYSTEM_SEARCHIPC_LAN_CONFIG& lan)
{
    clear(lan.MacAddress, lan.IPAddress, lan.Netmask, lan.Gateway, lan.DNS1, lan.DNS2, lan.DEV);
}

void mediaStreamConfig(Side& side, SYSTEM_SEARCHIPC_STREAM_ACCESS& stream, StreamForm form)
{
    if (const Element media = elementIf(isSet(stream.Auth), side, "MediaStreamConfig", kElements)) {
        // The only line that ends in a carriage return and a line feed.
        if (const Element access = element(side, "StreamAccess", kCarriageReturn)) {
            attribute(side, "Auth", stream.Auth);
            attribute(side, "VideoPort", stream.VideoPort);
            attribute(side, "RTPOverRTSP", stream.RTPOverRTSP);
            attribute(side, "PTZPort", stream.PTZPort);
            attribute(side, "WEBPort", stream.WEBPort);
            if (form == StreamForm::kWithClients) {
                attributeIfSet(side, "RTSPClientNumber", stream.RTSPClientNumber);
                attributeIfSet(side, "RTPPacketSize", stream.RTPPacketSize);
            }
        }
    }
}

} // namespace zel
