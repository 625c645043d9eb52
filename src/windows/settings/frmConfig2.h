#pragma once

#include "windows/outside/WindowContext.h"
#include "windows/settings/BytesEdit.h"

#include <QCheckBox>
#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Ui {
class frmConfig2;
}

namespace quillmark {

/// The dialog for the options of the program. OK takes them into the configuration and writes its
/// file at once. If that fails, the dialog stays open, and the options hold until the program ends.
class frmConfig2 : public QDialog {
    Q_OBJECT
public:
    frmConfig2(const WindowContext& context, QWidget* parent);
    ~frmConfig2() override;

signals:
    void helpRequested();

private:
    struct Flag {
        QCheckBox* control;
        std::int16_t Configuration::*field;
    };

    void bindOptions();
    void showOptions();
    void storeOptions();
    void save();

    std::unique_ptr<Ui::frmConfig2> ui_;
    const WindowContext& context_;
    std::vector<Flag> flags_;
    std::optional<BytesEdit> masks_; ///< Set once the controls have been made.
};

} // namespace quillmark
