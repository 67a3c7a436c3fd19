#pragma once

#include <QByteArray>
#include <QString>
#include <QTextStream>

namespace qlon {

// `qlon sync --to URL [--site NAME]`: the site that drive C: stands for, written to the chain
// database. Progress goes to standard error when it is a terminal, nothing otherwise; a site that
// can't be read or a database that refuses ends with status 1 and the reason. The status.
int SyncToChain(const QByteArray &url, const QString &site, QTextStream &err);

} // namespace qlon
