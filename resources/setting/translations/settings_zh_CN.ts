<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CardBrightness</name>
    <message>
        <source>Brightness</source>
        <translation>亮度</translation>
    </message>
</context>
<context>
    <name>CardBuzzer</name>
    <message>
        <source>Buzzer</source>
        <translation>蜂鸣器</translation>
    </message>
</context>
<context>
    <name>CardDNS</name>
    <message>
        <source>DNS 1</source>
        <translation></translation>
    </message>
    <message>
        <source>DNS 2</source>
        <translation></translation>
    </message>
    <message>
        <source>DNS Server</source>
        <translation>DNS服务器信息</translation>
    </message>
</context>
<context>
    <name>CardNIC</name>
    <message>
        <source>Default Adapter</source>
        <translation>默认网卡信息</translation>
    </message>
    <message>
        <source>Ethernet</source>
        <translation>网络</translation>
    </message>
    <message>
        <source>LAN0</source>
        <translation>有线网络0</translation>
    </message>
    <message>
        <source>LAN1</source>
        <translation>有线网络1</translation>
    </message>
    <message>
        <source>Ping Test</source>
        <translation>外网ping测试</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>测试</translation>
    </message>
    <message>
        <source>Test failed!</source>
        <translation>测试失败！</translation>
    </message>
    <message>
        <source>Test successful!</source>
        <translation>测试成功！</translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation>无线网络</translation>
    </message>
</context>
<context>
    <name>CardNetwork</name>
    <message>
        <source>4G</source>
        <translation>4G功能</translation>
    </message>
    <message>
        <source>Asia</source>
        <translation>亚洲服务器</translation>
    </message>
    <message>
        <source>Certificate Error</source>
        <translation>证书错误</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>准备连接</translation>
    </message>
    <message>
        <source>Connection Status</source>
        <translation>连接状态</translation>
    </message>
    <message>
        <source>Connection successful</source>
        <translation>连接成功</translation>
    </message>
    <message>
        <source>Default Gateway</source>
        <translation>默认网关</translation>
    </message>
    <message>
        <source>Disable Network</source>
        <translation>禁用网络</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Europe</source>
        <translation>欧洲服务器</translation>
    </message>
    <message>
        <source>HMI not authorized</source>
        <translation>HMI未授权</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP地址</translation>
    </message>
    <message>
        <source>LAN0</source>
        <translation>有线网络0</translation>
    </message>
    <message>
        <source>LAN1</source>
        <translation>有线网络1</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC地址</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>网络设置</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>Online</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>SSL Error</source>
        <translation>SSL错误</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>服务器</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号强度</translation>
    </message>
    <message>
        <source>Static IP</source>
        <translation>IP静态</translation>
    </message>
    <message>
        <source>Subnet Mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>Unknown Status</source>
        <translation>未知状态</translation>
    </message>
    <message>
        <source>VPN</source>
        <translation>VPN</translation>
    </message>
    <message>
        <source>VPN connected</source>
        <translation>VPN连接成功</translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation>无线网络</translation>
    </message>
    <message>
        <source>Wi-Fi Settings</source>
        <translation>点击进入WLAN设置</translation>
    </message>
</context>
<context>
    <name>CardTime</name>
    <message>
        <source>Date &amp; Time</source>
        <translation>日期与时间</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
</context>
<context>
    <name>CardVersion</name>
    <message>
        <source>Cloud Info</source>
        <translation>云信息</translation>
    </message>
    <message>
        <source>QR Code</source>
        <translation>二维码</translation>
    </message>
    <message>
        <source>Serial Number</source>
        <translation>序列号</translation>
    </message>
</context>
<context>
    <name>CardWifi</name>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Connected Wi-Fi</source>
        <translation>已连接的WLAN</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>Enter password</source>
        <translation>输入密码</translation>
    </message>
    <message>
        <source>Nearby Wi-Fi</source>
        <translation>选取附近的WLAN</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Reset WLAN</source>
        <translation>重置WLAN</translation>
    </message>
    <message>
        <source>Show Password</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>Time out</source>
        <translation>超时</translation>
    </message>
    <message>
        <source>Wi-Fi Offline</source>
        <translation>WLAN离线</translation>
    </message>
    <message>
        <source>Wi-Fi Settings</source>
        <translation>WLAN设置</translation>
    </message>
    <message>
        <source>Wrong password</source>
        <translation>密码错误</translation>
    </message>
</context>
<context>
    <name>QSP::AppRootItem</name>
    <message>
        <source>Exit</source>
        <translation>退出设置</translation>
    </message>
    <message>
        <source>General</source>
        <translation>通用设置</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言设置</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>网络设置</translation>
    </message>
    <message>
        <source>Reboot</source>
        <translation>重启设备</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本信息</translation>
    </message>
    <message>
        <source>Wi-Fi</source>
        <translation>无线网络</translation>
    </message>
</context>
<context>
    <name>QSP::CardNIC</name>
    <message>
        <source>Test Result</source>
        <translation>测试结果</translation>
    </message>
</context>
<context>
    <name>RebootDialog</name>
    <message>
        <source>Restart the panel now?</source>
        <translation>现在重启设备吗？</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>TimeEditPopup</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
</TS>
