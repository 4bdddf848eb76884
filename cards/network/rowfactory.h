#pragma once

class QQuickImage;
class QQuickItem;
class QQuickText;

namespace QSP {

class BeepSwitch;
class CIpInput;
class CMacInput;
class ComboBox;
class RowSizes;
class WifiTile;

/// Makes the rows of the network card and what stands in them, in sizes that they follow.
/// A label has the room that is left beside what stands at the right, and is shortened where that ends.
///
/// Nothing made here is connected to the service. Each part belongs to its row,
/// each row to the column.
class RowFactory
{
public:
    /// Heights of rows, as fractions of the height unit.
    static constexpr double normalRow = 0.78;
    static constexpr double addressRow = 0.75;
    static constexpr double statusRow = 32.0 / 31.0;

    /// Both must outlive the factory, and @p sizes what it makes.
    RowFactory(QQuickItem *column, const RowSizes &sizes) : m_column(column), m_sizes(&sizes) {}

    /// An empty row at the end of the column, as wide as it.
    QQuickItem *row(double height = normalRow) const;
    /// A row with a label at its left.
    QQuickItem *labelledRow(const char *source, double height = normalRow) const;

    /// The tile of the Wi-Fi rows, which is a row of its own.
    WifiTile *wifiTile() const;

    // What stands at the right end of a row.
    BeepSwitch *toggle(QQuickItem *row) const;
    CIpInput *address(QQuickItem *row) const;
    CMacInput *mac(QQuickItem *row) const;
    QQuickText *text(QQuickItem *row) const;
    QQuickImage *image(QQuickItem *row) const;
    ComboBox *comboBox(QQuickItem *row) const;

private:
    template <class Apply> void follow(QQuickItem *item, Apply apply) const;
    template <class Field> Field *field(QQuickItem *row) const;
    void placeRight(QQuickItem *item, QQuickItem *row) const;

    QQuickItem *m_column;
    const RowSizes *m_sizes;
};

} // namespace QSP
