// What catalogues translate and no text of the screen asks for. Never included; read by update_translations.

namespace {

[[maybe_unused]] constexpr const char *kept[] = {
    QT_TRANSLATE_NOOP("CardWifi", "Reset WLAN"),
    QT_TRANSLATE_NOOP("CardWifi", "Wi-Fi Settings"),
};

} // namespace
