#include "qt_table_model.h"

#include "raw_sqlite.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QVariant>

#include <stdexcept>

namespace zel::bench {

namespace {

constexpr const char* connectionName = "bench";

void require(bool done, const QSqlError& error) {
    if (!done)
        throw std::runtime_error(error.text().toStdString());
}

void startQt() {
    static int count = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
}

} // namespace

QtPostings::QtPostings(const std::filesystem::path& file, int person, bool durable) {
    startQt();
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", connectionName);
    database.setDatabaseName(QString::fromStdString(file.string()));
    require(database.open(), database.lastError());
    const QVariant handle = database.driver()->handle();
    raw_sqlite_add_collation(*static_cast<sqlite3* const*>(handle.constData()));
    if (!durable)
        database.exec("PRAGMA synchronous = OFF");
    model_ = std::make_unique<QSqlTableModel>(nullptr, database);
    model_->setTable("PersonsPost");
    model_->setEditStrategy(QSqlTableModel::OnManualSubmit);
    model_->setFilter(QString("PersonID = %1 and FinalCol = 0").arg(person));
    model_->setSort(model_->fieldIndex("ActivityDT"), Qt::AscendingOrder);
    require(model_->select(), model_->lastError());
    while (model_->canFetchMore())
        model_->fetchMore();
}

QtPostings::~QtPostings() {
    model_.reset();
    QSqlDatabase::removeDatabase(connectionName);
}

int QtPostings::rows() const {
    return model_->rowCount();
}

void QtPostings::editRemarks(int row, const std::string& text) {
    const QModelIndex cell = model_->index(row, model_->fieldIndex("Remarks"));
    require(model_->setData(cell, QString::fromStdString(text)), model_->lastError());
    require(model_->submitAll(), model_->lastError());
    while (model_->canFetchMore())
        model_->fetchMore();
}

} // namespace zel::bench
