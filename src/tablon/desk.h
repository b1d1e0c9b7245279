#pragma once

#include "forms/dialogs.h"
#include "printing/pages.h"

#include <string>
#include <vector>

namespace zel::tablon {

/// Chooses what Qt draws on, before it starts: the desktop where there is one, else nothing. Whether there may be
/// windows; `quiet` wants none.
[[nodiscard]] bool choosePlatform(bool quiet);

/// Where the clerk sits: boxes, progress, and the finished form. Without windows boxes become lines of standard error.
class Desk final : public forms::Dialogs {
public:
    /// Forms go into the folder; with none, into a file of this user that the desktop's viewer opens, from where they
    /// are printed.
    Desk(bool windows, std::string folder) : windows_(windows), folder_(std::move(folder)) {}

    void print(const std::string& name, const std::string& title, const printing::Layout& layout,
               const std::vector<printing::Page>& pages);

protected:
    forms::Answer showMessage(const forms::MessageBox& box) override;
    // The reporting program asks for nothing, and shows no forms of its own.
    std::string showInput(const forms::InputBox& /*box*/) override { return {}; }
    std::string showFile(const forms::FileBox& /*box*/) override { return {}; }
    void showModal(forms::Form& /*form*/) override {}
    void waitForTurn() override {}

private:
    void view(const std::string& file);

    bool windows_;
    std::string folder_;
};

} // namespace zel::tablon
