#pragma once

/// The system-settings service of a panel.
///
/// The settings screen reads and changes the panel only through this class. A
/// platform implements it in a shared library called libhmisystemset.so, which
/// can be exchanged without rebuilding the screen: the class has no virtual
/// function, no inline body and one opaque pointer.
///
/// Threads. The screen calls everything from its GUI thread, except
/// setBuzzerOn(), which comes from a short-lived worker thread; it may run
/// beside any getter. Getters are synchronous and are called from timers and
/// while drawing, so each must return within a fraction of a millisecond:
/// answer from memory, never from the network or a device. The screen hangs for
/// as long as any call from its thread takes; one of 200 ms or more is told in
/// its log by the name of the operation, each at most once a minute.
///
/// Callbacks. An operation that takes a std::function returns at once and
/// reports later: on any thread, synchronously from within the call too, once
/// or (connectWifi()) several times. The screen copes with reports that come
/// late, twice or never, and with reports that come after it has gone. The
/// function may be copied and may be empty; an empty one is not to be called.
/// The screen does not wait for ever: connectWifi() without a final value for
/// 60 s counts as WIFI_TIMEOUT, scanWifi() and resetWifi() without a list for
/// 30 s as failed, pingTest() without an outcome for 15 s as failed. A report
/// that comes later is dropped. A lease may take as long as it likes.
///
/// Life. After the destructor has returned, no callback comes. Callbacks never
/// run while a lock is held that a call of this class needs: they may call it.
///
/// Errors. Nothing throws. A getter that cannot answer returns the neutral
/// value named at its place; a setter that cannot comply leaves the panel as
/// it was, and the screen shows the getters' view again.

#include <QtCore/QtGlobal>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#define HMI_EXPORT __attribute__((visibility("default")))

namespace HMI {

/// An IPv4 address (or mask) in host order: the first dotted octet is the most
/// significant byte, so 192.168.1.10 is 0xC0A8010A. 0 means "no address".
class HMI_EXPORT IP
{
public:
    constexpr IP(quint32 address = 0) noexcept : m_address(address) {}
    constexpr operator quint32() const noexcept { return m_address; }

private:
    quint32 m_address;
};

/// A hardware address, first shown byte first.
using MAC = std::array<unsigned char, 6>;

/// The name of a wireless network: up to 32 bytes as the access point sends
/// them, in whatever encoding, ended by a NUL byte. All zero means "none".
using SSID = std::array<char, 33>;

/// The panel's settings. One instance a process, reached through
/// MeyerSingleton<HMI::SystemSet>::instance(); nothing else constructs it.
class HMI_EXPORT SystemSet
{
public:
    /// A network adapter; the values are single bits of the mask that getAllNIC() returns.
    enum NIC : int {
        LAN0 = 1,       ///< first wired adapter
        LAN1 = 2,       ///< second wired adapter
        WIFI = 4,       ///< wireless adapter
        MOBILE_4G = 16, ///< mobile modem
        VPN = 64,       ///< tunnel to the remote-maintenance server
    };
    /// Outcome of a setDHCP() request; anything but DHCP_OK counts as failed.
    enum DHCP_STATE : int { DHCP_OK = 0, DHCP_FAILED = 1 };
    /// Progress of connectWifi(); the screen ignores values that are not listed.
    enum StateWifi : int {
        WIFI_OFFLINE = 0,        ///< the attempt failed or the link was lost (final)
        WIFI_CONNECTING = 1,     ///< the attempt goes on
        WIFI_CONNECTED = 2,      ///< joined (final)
        WIFI_TIMEOUT = 3,        ///< the network did not answer in time (final)
        WIFI_WRONG_PASSWORD = 4, ///< the password was refused (final)
    };
    /// Region of the VPN server.
    enum VPNServer : int { ASIA = 0, EUROPE = 1 };
    /// Backlight level: every integer from 1 (darkest, still readable) to 32 (brightest).
    enum Bright : int { BRIGHT_MIN = 1, BRIGHT_MAX = 32 };
    /// Language of the panel.
    enum Language : int { CHINESE = 0, ENGLISH = 1 };

    /// One network of a scan.
    struct SsidInfo {
        SSID ssid;            ///< name, ended by NUL (the screen forces byte 32 to 0)
        std::string password; ///< the password that the panel keeps for it, UTF-8; empty when none
        unsigned char signal; ///< strength in percent, 0 to 100
        unsigned char
            needsPassword; ///< 0: the stored password (or none) will do, connect at once; else a password is needed
    };
    /// Receives a scan's list, strongest or nearest first as the platform likes;
    /// the screen keeps the order. Null means that the scan failed.
    using WifiListCallback = std::function<void(std::unique_ptr<std::vector<SsidInfo>>)>;

    SystemSet();
    ~SystemSet();
    SystemSet(const SystemSet &) = delete;
    SystemSet &operator=(const SystemSet &) = delete;

    // --- Addresses. NIC is one adapter, never a mask; an adapter that the panel does not have
    // reads 0 (false, all zero), here and below, and setting it changes nothing. ---

    /// The address that the adapter has at this moment; 0 when it has none.
    IP getIp(NIC nic) const;
    /// The subnet mask in force at this moment; 0 when there is none.
    IP getSubnetMask(NIC nic) const;
    /// The gateway in force at this moment; 0 when there is none.
    IP getGateway(NIC nic) const;
    /// The stored static address; 0 when none was ever stored.
    IP getIpFromEE(NIC nic) const;
    /// The stored static subnet mask; 0 when none was ever stored.
    IP getSubnetMaskFromEE(NIC nic) const;
    /// The stored static gateway; 0 when none was ever stored.
    IP getGatewayFromEE(NIC nic) const;
    /// Sets the static address; @p persist stores it over a restart (the screen
    /// always passes true). It takes effect while the adapter is not on DHCP.
    /// The value is what the operator typed: the screen does not check that
    /// address, mask and gateway agree.
    void setIp(NIC nic, IP ip, bool persist);
    /// Sets the static subnet mask; as setIp().
    void setSubnetMask(NIC nic, IP mask, bool persist);
    /// Sets the static gateway; as setIp().
    void setGateway(NIC nic, IP gateway, bool persist);
    /// The hardware address, asked for LAN0, LAN1 and WIFI; all zero when unknown.
    MAC getMac(NIC nic) const;

    // --- DHCP ---

    /// Whether the adapter takes its addresses from a DHCP server; false when not known.
    bool isDhcpOn(NIC nic) const;
    /// Switches the adapter to DHCP (@p on) or to its stored static addresses.
    /// @p done reports when the lease is there or has failed, or the static
    /// addresses are in force. A request while one is under way starts anew;
    /// both may report. Switching on what is on asks for a fresh lease. The
    /// flag that isDhcpOn() reads changes at the call; a lease never changes the
    /// stored addresses. An adapter that the panel does not have reports a failure.
    void setDHCP(NIC nic, bool on, const std::function<void(DHCP_STATE)> &done, bool persist);

    // --- Adapters ---

    /// The adapters that this panel has, as a mask of NIC bits. Constant for
    /// the life of the process; unknown bits are ignored.
    int getAllNIC() const;
    /// Whether the adapter is switched on. Changes at the call of enableNIC(),
    /// not when the link is up.
    bool isNicEnabled(NIC nic) const;
    /// Switches the adapter on or off.
    void enableNIC(NIC nic, bool enable, bool persist);
    /// The adapter of the default route; 0 on a panel without adapters. It may be one that is switched off.
    NIC getDefaultNIC() const;
    /// Chooses the adapter of the default route, among those that the panel has; the screen passes false for
    /// @p restart: the route changes without a restart of the network.
    void setDefaultNIC(NIC nic, bool restart);
    /// Tries to reach the outside world over @p nic; @p done tells whether it
    /// answered. Over an adapter that is off or not there it did not.
    void pingTest(NIC nic, const std::function<void(bool)> &done);

    // --- Wi-Fi ---

    /// Looks for networks nearby. @p done owns the list; null or empty while
    /// the adapter is off or not there.
    void scanWifi(const WifiListCallback &done);
    /// Forgets every network and password, leaves the joined one, then delivers a fresh scan.
    void resetWifi(const WifiListCallback &done);
    /// Joins a network. @p ssid holds the same 33 bytes that the scan gave,
    /// @p password is UTF-8 and may be empty. @p done may come several times:
    /// connecting, then one final value. A new attempt replaces one under way.
    /// A password that was refused must not be kept.
    void connectWifi(const SSID &ssid, const std::string &password,
                     const std::function<void(StateWifi)> &done);
    /// The network that the adapter has joined; all zero when none.
    SSID currentWifiSsid() const;
    /// Whether the adapter has joined a network; false when not known.
    bool isWifiConnected() const;
    /// Strength of the joined network in percent, 0 to 100; 0 when not known.
    int currentWifiSignalStrength() const;

    // --- 4G; called with MOBILE_4G ---

    /// 0 not connected (or no modem), 1 connecting, 2 connected; anything else is shown as unknown.
    int get4GState(NIC nic) const;
    /// Strength in percent, 0 to 100; 0 when not known. Below 1 is shown as no signal.
    int get4GSignal(NIC nic) const;

    // --- VPN ---

    /// The server region in use; ASIA on a panel without a VPN.
    VPNServer getVPNServer() const;
    /// Chooses the server region; the screen offers it only while the VPN is off.
    void setVPNServer(VPNServer server);
    /// 0 not connected (or no VPN), 1 connecting, 2 panel not authorised, 3 TLS error,
    /// 4 certificate error, 5 connected; anything else is shown as unknown.
    int getVPNServerState(VPNServer server) const;
    /// Drops the tunnel address got from @p server.
    void resetVPNIp(VPNServer server);

    // --- DNS ---

    /// Preferred and alternate server of an adapter; 0 for one that is not set.
    std::pair<IP, IP> getDns(NIC nic) const;
    /// Sets both servers of an adapter.
    void setDns(NIC nic, const std::pair<IP, IP> &servers);

    // --- Clock ---

    /// Sets the system clock to @p seconds since the Unix epoch (UTC); true on
    /// success, false with the clock unchanged for a time that it cannot hold.
    /// A long has 32 bits on a 32-bit panel, whatever its time_t has: the screen
    /// offers no time there beyond 2038-01-19 03:14:07 UTC, the last that fits,
    /// and nowhere one beyond the year 2038.
    /// Called synchronously from the operator's tap: be quick.
    bool setSystemTime(long seconds);
    /// Copies the system clock to the hardware clock. Follows a setSystemTime() that succeeded.
    void syncHwclock();

    // --- Backlight ---

    /// The level, 1 to 32; any of them where nothing can be dimmed.
    Bright bright() const;
    /// Sets the level at once; a level outside 1 to 32 changes nothing. @p save is false while the operator drags, true
    /// once at the end: only then store it over a restart.
    void setBright(Bright level, bool save);

    // --- Buzzer ---

    /// Whether keys beep; false where there is no buzzer.
    bool isBuzzerOn() const;
    /// Switches the key beep on or off and stores it. Called from a worker
    /// thread for which the GUI thread waits: it may write to flash, but must end.
    void setBuzzerOn(bool on);
    /// One key beep; the screen always passes true. Must return at once.
    void beep(bool on) const;

    // --- Language ---

    /// The panel's language; ENGLISH when not known. A value other than CHINESE is shown in English.
    Language getLanguage() const;
    /// Records the language for the rest of the panel; the screen switches its own texts itself.
    void setLanguage(Language language);

    // --- Identity and power ---

    /// The serial number, UTF-8; empty when unknown.
    std::string getSerialNumber() const;
    /// Restarts the panel. Called at the operator's tap, without a question in between unless the host wants one.
    void reboot();

private:
    struct Private;
    Private *d;
};

} // namespace HMI
