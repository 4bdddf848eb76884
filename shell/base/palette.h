#pragma once

#include "meyersingleton.h"

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace QSP {

/// The colours that more than one place of the screen has, by what they are for. The documents see them as
/// Palette of the module QQuickSystemSet.Toolkit, of which each engine has its own object. A colour of one place alone stands there.
///
/// GUI thread only. Lives from its first use to the end of the process.
class Palette : public QObject, public MeyerSingleton<Palette>
{
    Q_OBJECT
    Q_PROPERTY(QColor accent READ accent CONSTANT)
    Q_PROPERTY(QColor focus READ focus CONSTANT)
    Q_PROPERTY(QColor background READ background CONSTANT)
    Q_PROPERTY(QColor surface READ surface CONSTANT)
    Q_PROPERTY(QColor markedSurface READ markedSurface CONSTANT)
    Q_PROPERTY(QColor separator READ separator CONSTANT)
    Q_PROPERTY(QColor track READ track CONSTANT)
    Q_PROPERTY(QColor title READ title CONSTANT)
    Q_PROPERTY(QColor text READ text CONSTANT)
    Q_PROPERTY(QColor strongHint READ strongHint CONSTANT)
    Q_PROPERTY(QColor hint READ hint CONSTANT)
    Q_PROPERTY(QColor caption READ caption CONSTANT)
    Q_PROPERTY(QColor disabledText READ disabledText CONSTANT)
    Q_PROPERTY(QColor fieldText READ fieldText CONSTANT)
    Q_PROPERTY(QColor fieldBorder READ fieldBorder CONSTANT)
    Q_PROPERTY(QColor frame READ frame CONSTANT)
    Q_PROPERTY(QColor success READ success CONSTANT)
    Q_PROPERTY(QColor failure READ failure CONSTANT)

public:
    /// Offers it to the documents; whoever reads one calls it first. Once a process, however often it is called.
    static void registerForDocuments();

    /// What is on, chosen or to be pressed.
    QColor accent() const { return m_accent; }
    /// The frame of the field that is edited, and texts that are pressed like buttons.
    QColor focus() const { return m_focus; }
    /// Behind the cards.
    QColor background() const { return m_background; }
    /// Cards, rows and the menu.
    QColor surface() const { return m_surface; }
    /// A surface that is pressed, or the chosen one.
    QColor markedSurface() const { return m_markedSurface; }
    QColor separator() const { return m_separator; }
    /// What a handle runs in, and the handle of the scroll bar.
    QColor track() const { return m_track; }
    QColor title() const { return m_title; }
    QColor text() const { return m_text; }
    /// Texts beside the main one, from the strongest to the weakest.
    QColor strongHint() const { return m_strongHint; }
    QColor hint() const { return m_hint; }
    QColor caption() const { return m_caption; }
    QColor disabledText() const { return m_disabledText; }
    /// Text in an entry field that can be edited.
    QColor fieldText() const { return m_fieldText; }
    QColor fieldBorder() const { return m_fieldBorder; }
    /// Of dialogs, and of the boxes in them.
    QColor frame() const { return m_frame; }
    QColor success() const { return m_success; }
    QColor failure() const { return m_failure; }

private:
    QColor m_accent{0x34, 0x82, 0xFF};
    QColor m_focus{0x32, 0x69, 0xCE};
    QColor m_background{0xF4, 0xF5, 0xF5};
    QColor m_surface{0xFF, 0xFF, 0xFF};
    QColor m_markedSurface{0xF2, 0xF3, 0xF5};
    QColor m_separator{0xE5, 0xE6, 0xEB};
    QColor m_track{0xC9, 0xCD, 0xD4};
    QColor m_title{0x2C, 0x2E, 0x30};
    QColor m_text{0x1D, 0x21, 0x29};
    QColor m_strongHint{0x4E, 0x59, 0x69};
    QColor m_hint{0x65, 0x6F, 0x7D};
    QColor m_caption{0x86, 0x90, 0x9C};
    QColor m_disabledText{0xB4, 0xB4, 0xB4};
    QColor m_fieldText{0x00, 0x00, 0x00};
    QColor m_fieldBorder{0xE2, 0xE2, 0xE2};
    QColor m_frame{0xE6, 0xE7, 0xE9};
    QColor m_success{0x00, 0xBC, 0x79};
    QColor m_failure{0xFF, 0x4D, 0x4F};
};

} // namespace QSP
