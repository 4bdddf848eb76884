#pragma once

class QQuickImage;
class QQuickItem;
class QQuickText;

namespace QSP {

class BeepSwitch;
class CIpInput;
class CMacInput;
class CardNetwork;
class ComboBox;

/// Makes the rows of the network card and what stands in them, in the card's sizes.
///
/// Nothing made here is connected to the service. Each part belongs to its row,
/// each row to the card's column.
class RowFactory
{
public:
    /// Heights of rows, as fractions of the card's row height.
    static constexpr double normalRow = 0.78;
    static constexpr double addressRow = 0.75;
    static constexpr double statusRow = 32.0 / 31.0;

    explicit RowFactory(const CardNetwork &card);

    /// An empty row at the end of the column, as wide as it.
    QQuickItem *row(double height = normalRow) const;
    /// A row with a label at its left.
    QQuickItem *labelledRow(const char *source, double height = normalRow) const;

    // What stands at the right end of a row.
    BeepSwitch *toggle(QQuickItem *row) const;
    CIpInput *address(QQuickItem *row) const;
    CMacInput *mac(QQuickItem *row) const;
    QQuickText *text(QQuickItem *row) const;
    QQuickImage *image(QQuickItem *row) const;
    ComboBox *comboBox(QQuickItem *row) const;

private:
    template <class Field> Field *field(QQuickItem *row) const;
    void placeRight(QQuickItem *item, QQuickItem *row) const;

    QQuickItem *m_layout;
    int m_rowHeight;
    int m_fontPixelSize;
};

} // namespace QSP
