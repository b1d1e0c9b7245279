#include "printing/remarks.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

namespace zel::printing {

namespace {

void tellWhatIsCritical(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", text.toStdString().c_str());
}

} // namespace

void dropRemarks() {
    qInstallMessageHandler(tellWhatIsCritical);
}

} // namespace zel::printing
