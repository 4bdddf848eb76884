# What makes a build from nothing short: headers that nearly every file reads are read once.
# A build without it (the preset "analysis") shows whether each file includes what it uses.

# Lets a compiler cache take part in what is built with precompiled headers.
function(panel_cacheable target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()

# Precompiles the named headers for the files of TARGET.
function(panel_precompile target)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    panel_cacheable(${target})
endfunction()

# Uses in TARGET the headers that were precompiled for OTHER.
function(panel_reuse_precompiled target other)
    target_precompile_headers(${target} REUSE_FROM ${other})
    panel_cacheable(${target})
endfunction()

# What the classes of the screen and of the keyboard, and their tests, are made of.
set(PANEL_QUICK_HEADERS
    <algorithm>
    <array>
    <functional>
    <memory>
    <utility>
    <QtCore/QCoreApplication>
    <QtCore/QPointer>
    <QtCore/QTimer>
    <QtCore/QUrl>
    <QtCore/QVariant>
    <QtCore/QVector>
    <QtGui/QGuiApplication>
    <QtGui/QKeyEvent>
    <QtQml/QQmlComponent>
    <QtQml/QQmlContext>
    <QtQml/QQmlEngine>
    <QtQuick/QQuickItem>
    <QtQuick/QQuickWindow>
    <QtQuick/private/qquickanchors_p.h>
    <QtQuick/private/qquickimage_p.h>
    <QtQuick/private/qquickitem_p.h>
    <QtQuick/private/qquickrectangle_p.h>
    <QtQuick/private/qquicktext_p.h>
    <QtQuick/private/qquicktextinput_p.h>
    <QtQuickTemplates2/private/qquickabstractbutton_p.h>
    <QtQuickTemplates2/private/qquickpopup_p.h>
)
