#pragma once

#include <QString>

/// What the user sets for all notes; kept in the application's own configuration folder.
struct Preferences {
    static constexpr int smallestFont = 8, usualFont = 11, largestFont = 28;

    int fontSize = usualFont; ///< in points, within the limits above
    bool wordWrap = true;
    bool preview = true; ///< the rendered note is shown beside the editor
    QString author; ///< e-mail address, goes along with bug reports; may be empty

    /// What was saved last; the usual values for what was not.
    [[nodiscard]] static Preferences load();
    void save() const;
};
