#include "program/direct_suite.h"

#include "ado/connection.h"
#include "ado/error.h"
#include "ado/postgres/open.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "core/session.h"
#include "forms/dialogs.h"

namespace zel::program {

std::unique_ptr<core::ResourceDeleter> DirectSuite::makeResourceDeleter() {
    throw ado::Error(ado::ErrorKind::State, ado::errors::failed, "This suite deletes no resources.");
}

void DirectSuite::copyDatabase(const std::string& path, const std::string& copy) {
    ado::backupInto(path, copy);
}

bool DirectSuite::CloseDatabase() {
    if (connection_)
        connection_->Close();
    connection_.reset();
    return true;
}

void DirectSuite::OpenDesktop(core::Session&, const std::string& path, const std::string&, const std::string&,
                              const std::string&, const std::string&) {
    connection_ = std::make_shared<ado::Connection>(ado::openSqlite(path));
}

std::string DirectSuite::OpenServer(core::Session& session, const std::string&, const std::string&, std::string& server,
                                    std::string& catalog) {
    if (server.empty() || catalog.empty())
        return {};
    try {
        connection_ = std::make_shared<ado::Connection>(ado::openPostgres({server, catalog, {}, {}}));
    } catch (const ado::Error& failure) {
        session.dialogs.message(failure.description(), session.title(": No Connection"), forms::Buttons::OK,
                                forms::Icon::Critical);
        return {};
    }
    return connection_->ConnectionString();
}

} // namespace zel::program
