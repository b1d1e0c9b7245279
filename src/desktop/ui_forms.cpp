#include "desktop/ui_forms.h"

#include "desktop/qt_text.h"
#include "ui_frmAbout.h"
#include "ui_frmAccounts.h"
#include "ui_frmAdminOffice.h"
#include "ui_frmConfirm.h"
#include "ui_frmIncidents.h"
#include "ui_frmMain.h"
#include "ui_frmOfficePopup.h"
#include "ui_frmPersonnel.h"
#include "ui_frmPost.h"
#include "ui_frmSecurity.h"
#include "ui_frmServerSelect.h"
#include "ui_frmViewRpt.h"

#include <QMainWindow>

#include <map>

namespace zel::desktop {

namespace {

template <typename Ui, typename Root = QWidget>
QWidget* make() {
    auto* root = new Root;
    Ui().setupUi(root);
    return root;
}

using Maker = QWidget* (*)();

const std::map<std::string_view, Maker>& makers() {
    static const std::map<std::string_view, Maker> known{
        {"frmMain", make<Ui::frmMain, QMainWindow>},
        {"frmAbout", make<Ui::frmAbout>},
        {"frmAccounts", make<Ui::frmAccounts>},
        {"frmAdminOffice", make<Ui::frmAdminOffice>},
        {"frmConfirm", make<Ui::frmConfirm>},
        {"frmIncidents", make<Ui::frmIncidents>},
        {"frmOfficePopup", make<Ui::frmOfficePopup>},
        {"frmPersonnel", make<Ui::frmPersonnel>},
        {"frmPost", make<Ui::frmPost>},
        {"frmSecurity", make<Ui::frmSecurity>},
        {"frmServerSelect", make<Ui::frmServerSelect>},
        {"frmViewRpt", make<Ui::frmViewRpt>},
    };
    return known;
}

} // namespace

QWidget* makeWidgets(std::string_view form) {
    const auto found = makers().find(form);
    return found == makers().end() ? nullptr : found->second();
}

QStringList drawnForms() {
    QStringList names;
    for (const auto& [name, maker] : makers())
        names << toQt(name);
    return names;
}

} // namespace zel::desktop
