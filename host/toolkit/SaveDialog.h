#pragma once

#include <QFileDialog>

namespace ko {

/// Asks for a file to write. A name without an ending gets the suffix, so that the dialogs that open files list it.
class SaveDialog final : public QFileDialog {
public:
    SaveDialog(QWidget* parent, const QString& title, const QString& folder, const QString& filters,
               const QString& suffix);

protected:
    void accept() override;
};

/// Returns whether a name ends as those of files of some kind do, such as "bench.json"; "bench v1.2" does not.
bool hasEnding(const QString& name);

} // namespace ko
