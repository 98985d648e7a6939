#pragma once

#include "core/io/record.h"
#include "core/io/result.h"
#include "core/io/store.h"

#include <QList>

namespace tresvane
{
// Whole fixed-record files read and written in one piece, for the record types that are
// small lists (catalogues, history, the customer file in one pass). R is a FixedRecord
// type with a default constructor and a constructor from the record's bytes.

// The records of a file's bytes. A partial last record counts when the rounded division
// says so and is filled with zero bytes, as the old readers saw it.
template <typename R> QList<R> SplitRecordsAs(const QByteArray& bytes)
{
    const int length = R().layout().length();
    const qint64 count = Store::roundedRecords(bytes.size(), length);
    QList<R> records;
    records.reserve(count);
    for (qint64 i = 0; i < count; ++i) {
        const qsizetype offset = std::min<qsizetype>(i * length, bytes.size());
        const qsizetype available = std::min<qsizetype>(bytes.size() - offset, length);
        records.append(R(QByteArrayView(bytes.constData() + offset, available)));
    }
    return records;
}

template <typename R> QByteArray JoinRecordsAs(const QList<R>& records)
{
    QByteArray out;
    out.reserve(records.size() * R().layout().length());
    for (const R& r : records)
        out += r.bytes();
    return out;
}

// Every record of the file; none when the file is missing (after FileExists has had its
// chance to bring it back from Backup).
template <typename R> Result<QList<R>> ReadRecordFile(Store& store, const QString& name)
{
    if (!store.FileExists(name)) return QList<R>();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    return SplitRecordsAs<R>(*bytes);
}

// Replaces the file with the records, numbered from 1, as a rewrite of a whole file: its
// copy in Backup goes first so that it cannot come back. No records leave an empty file.
template <typename R>
Status WriteRecordFile(Store& store, const QString& name, const QList<R>& records)
{
    return store.RewriteTextFile(name, JoinRecordsAs(records));
}
} // namespace tresvane
