#pragma once

#include "core/screen.h"
#include "forms/common_dialog.h"
#include "forms/control_array.h"
#include "forms/timer.h"

#include <functional>
#include <string>

namespace zel::core {

/// The hidden form that holds what has no place on a screen: the timers that watch for the administrative request to
/// leave the database, and the file dialog. It comes into being at its first use.
class frmRefs : public DialogWindow {
public:
    explicit frmRefs(Session& state);

    /// Asks for the database file; empty when the clerk cancelled.
    [[nodiscard]] std::string askForDatabase();

    /// Writes the present time, on the quarter hour, into each time box that was not edited and passes the caller's
    /// test. Even boxes are starts, odd ones ends.
    template <typename Box>
    void ThisTime(const forms::ControlArray<Box>& boxes, const std::function<bool(int index)>& test) {
        boxes.each([&](Box& box) {
            bool& edited = session.TimeChanged[static_cast<std::size_t>(box.Index() % 2)];
            if (edited || !test(box.Index()))
                return;
            box.setText(presentTime());
            edited = false; // the box takes the new text for an edit
        });
    }

    forms::Timer tmrMinute{*this, "tmrMinute"};
    forms::Timer tmrGetOut{*this, "tmrGetOut"};
    forms::CommonDialog CommonDialog1{*this, "CommonDialog1"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    [[nodiscard]] std::string presentTime() const;
    [[nodiscard]] std::string requestFile() const;
    void everyMinute();
    void getOut();
    void askToLeave(const std::string& request);
};

} // namespace zel::core
