SUMMARY = "Settings screen of operator panels, as a plug-in of the panel's runtime"
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=dc3ef207546339ce088a5e20ebdad7e8"

# Where the sources are is for whoever builds the image to say, in a .bbappend or in local.conf.
PANELSETTINGS_URI ?= "git:///srv/git/panelsettings.git;protocol=file;branch=main"
PANELSETTINGS_REV ?= "${AUTOREV}"
SRC_URI = "${PANELSETTINGS_URI}"
SRCREV = "${PANELSETTINGS_REV}"
S = "${WORKDIR}/git"

# The class is from meta-qt5. The documents are compiled by the tools of qtdeclarative-native, the catalogues by
# those of qttools-native.
inherit cmake_qt5 pkgconfig
DEPENDS = "qtbase qtdeclarative qtquickcontrols2 qtdeclarative-native qttools-native qrcodegen"

EXTRA_OECMAKE = "-DPANEL_BUILD_TESTS=OFF -DPANEL_BUILD_BENCHES=OFF"

# An image with the panel's own service and keyboard takes the first of these alone.
PACKAGES = "${PN} ${PN}-simulator ${PN}-linux ${PN}-conformance ${PN}-dev ${PN}-doc ${PN}-dbg"
# The plug-in has no version in its name, and is no link for developers.
SOLIBS = ".so"
FILES_SOLIBSDEV = ""
FILES:${PN} = "${libdir}/libpanelsettings.so ${docdir}/panelsettings/LICENSE ${docdir}/panelsettings/THIRD-PARTY.md"
FILES:${PN}-simulator = "${bindir}/panel-host ${libdir}/panelsettings/simulator ${datadir}/panelsettings/scenarios \
    ${docdir}/panelsettings-simulator ${docdir}/panelsettings-keyboard ${docdir}/panelsettings-host"
FILES:${PN}-linux = "${libdir}/panelsettings/linux ${datadir}/polkit-1 ${docdir}/panelsettings-linux \
    ${nonarch_libdir}/udev ${nonarch_libdir}/sysctl.d ${nonarch_libdir}/sysusers.d ${nonarch_libdir}/tmpfiles.d"
FILES:${PN}-conformance = "${bindir}/panelsettings-conformance ${libdir}/panelsettings/conformance-*.so \
    ${docdir}/panelsettings-conformance"
FILES:${PN}-dev = "${includedir} ${libdir}/cmake ${libdir}/pkgconfig ${docdir}/panelsettings-development"
FILES:${PN}-doc = "${docdir}/panelsettings ${docdir}/panelsettings-doc"
ALLOW_EMPTY:${PN}-conformance = "1"

RDEPENDS:${PN} = "qtdeclarative-qmlplugins qtquickcontrols2-qmlplugins"
RDEPENDS:${PN}-simulator = "${PN}"
RDEPENDS:${PN}-linux = "networkmanager polkit systemd"

# The stand-ins have the names of the panel's own libraries, but nobody who needs those is to be given the stand-ins.
PRIVATE_LIBS:${PN}-simulator = "libhmisystemset.so libqvkbpluginloader.so"
PRIVATE_LIBS:${PN}-linux = "libhmisystemset.so"
# The panel's own come with other packages, which this recipe does not know.
INSANE_SKIP:${PN} = "file-rdeps"
