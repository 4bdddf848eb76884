################################################################################
#
# panelsettings
#
################################################################################

PANELSETTINGS_VERSION = 1.0.0
PANELSETTINGS_SITE = $(call qstrip,$(BR2_PACKAGE_PANELSETTINGS_SITE))
PANELSETTINGS_SITE_METHOD = local
PANELSETTINGS_LICENSE = MIT
PANELSETTINGS_LICENSE_FILES = LICENSE
PANELSETTINGS_INSTALL_STAGING = YES
PANELSETTINGS_DEPENDENCIES = qt5base qt5declarative qt5quickcontrols2 qt5tools qrcodegen

PANELSETTINGS_CONF_OPTS = \
	-DPANEL_BUILD_TESTS=OFF \
	-DPANEL_BUILD_BENCHES=OFF

# The headers stay where images are built; a panel gets the plug-in, and what was asked for besides.
PANELSETTINGS_COMPONENTS = runtime
ifeq ($(BR2_PACKAGE_PANELSETTINGS_SIMULATOR),y)
PANELSETTINGS_COMPONENTS += simulator keyboard host
endif
ifeq ($(BR2_PACKAGE_PANELSETTINGS_CONFORMANCE),y)
PANELSETTINGS_COMPONENTS += conformance
endif

define PANELSETTINGS_INSTALL_TARGET_CMDS
	$(foreach component,$(PANELSETTINGS_COMPONENTS),\
		DESTDIR=$(TARGET_DIR) $(BR2_CMAKE) --install $(PANELSETTINGS_BUILDDIR) \
			--component $(component)$(sep))
endef

$(eval $(cmake-package))
