#pragma once

#include "core/screen.h"
#include "forms/common_dialog.h"
#include "forms/timer.h"

#include <string>

namespace zel::core {

/// The hidden form that holds what has no place on a screen: the timers that watch for the administrative request to
/// leave the database, and the file dialog. It comes into being at its first use.
class frmRefs : public DialogWindow {
public:
    explicit frmRefs(Session& state);

    /// Asks for the database file; empty when the clerk cancelled.
    [[nodiscard]] std::string askForDatabase();

    forms::Timer tmrMinute{*this, "tmrMinute"};
    forms::Timer tmrGetOut{*this, "tmrGetOut"};
    forms::CommonDialog CommonDialog1{*this, "CommonDialog1"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    [[nodiscard]] std::string requestFile() const;
    void everyMinute();
    void getOut();
    void askToLeave(const std::string& request);
};

} // namespace zel::core
