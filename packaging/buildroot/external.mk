include $(sort $(wildcard $(BR2_EXTERNAL_PANELSETTINGS_PATH)/panelsettings/*.mk))
