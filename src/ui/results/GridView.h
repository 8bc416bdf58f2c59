#pragma once

#include <QTableView>

namespace veskora {

class ResultGrid;

/// Shows a `ResultGrid`: columns as wide as their content, separators thin, cells selected and
/// copied as tab-separated text.
class GridView : public QTableView
{
    Q_OBJECT
public:
    explicit GridView(QWidget *parent = nullptr);

    enum class Header {
        inGrid, ///< row 0 scrolls with the others, as its columns are not those of all rows
        fixed   ///< row 0 stays in sight and its columns can be drawn wider
    };
    /// Takes @p grid, filled, as a child.
    void present(ResultGrid *grid, Header header);
    const ResultGrid &grid() const;
    /// What must be told of the cells, also where they are copied; lines, mostly none.
    void setNotice(const QString &notice) { notice_ = notice; }

protected:
    void showEvent(QShowEvent *event) override;

private:
    /// To what their texts take. Of thousands that is slow: only of a grid that is seen.
    void sizeColumns();
    void copySelection() const;

    QString notice_;
    bool isSized_ = true;
};

} // namespace veskora
