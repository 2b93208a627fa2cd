#pragma once

#include "state/FilterGroup.h"

#include <array>
#include <vector>

class QCheckBox;
class QWidget;

namespace tovrel {

/// The upper part that all option windows share: a column of check boxes for each criterion, the
/// explanation beside them and the line below. The boxes show a filter and write into it at every
/// act of the user; the filter's rule answers, and the boxes show the answer.
class frmFilterBoxes {
public:
    /// Where the windows differ, in twips.
    struct IotaColumn {
        float headingLeft; ///< left edge of the column's heading
        float offWidth;    ///< width of its "OFF" box
    };

    /// Makes the controls in `window`. They do nothing until there is a filter.
    frmFilterBoxes(QWidget& window, const IotaColumn& iota);
    frmFilterBoxes(const frmFilterBoxes&) = delete;
    frmFilterBoxes& operator=(const frmFilterBoxes&) = delete;

    /// Shows `filter` from now on. It has to stay as long as the boxes do, and nobody else may
    /// listen to its groups.
    void bind(Filter& filter);

    /// The boxes of a criterion, from "OFF" downward.
    const std::vector<QCheckBox*>& column(Criterion criterion) const {
        return columns_[static_cast<std::size_t>(criterion)];
    }

private:
    void mirror(Criterion criterion);
    void choose(Criterion criterion, int member, bool on);

    Filter* filter_ = nullptr;
    std::array<std::vector<QCheckBox*>, 3> columns_;
    std::array<Connection, 3> follows_;
};

} // namespace tovrel
