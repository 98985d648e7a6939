#pragma once

#include "core/io/cp1252.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <string_view>
#include <unordered_map>

namespace tresvane
{
// Decodes field texts that repeat (accounts, names, dates, problem texts) once each and
// hands out shared copies after that, so a list of tens of thousands of rows costs one
// string per distinct text rather than one per cell. The keys point into the bytes being
// scanned: the pool must not outlive them.
class TextPool
{
public:
    QString get(QByteArrayView bytes)
    {
        if (bytes.isEmpty()) return {};
        const std::string_view key(bytes.data(), size_t(bytes.size()));
        // Files are mostly written in runs of one account or one day.
        if (m_last && key == m_lastKey) return *m_last;
        auto it = m_texts.find(key);
        if (it == m_texts.end()) it = m_texts.emplace(key, cp1252::decode(bytes)).first;
        m_lastKey = key;
        m_last = &it->second; // nodes stay where they are as the table grows
        return *m_last;
    }

    // Every distinct text seen, in no particular order.
    QStringList texts() const
    {
        QStringList out;
        out.reserve(qsizetype(m_texts.size()));
        for (const auto& entry : m_texts)
            out.append(entry.second);
        return out;
    }

private:
    std::unordered_map<std::string_view, QString> m_texts;
    std::string_view m_lastKey;
    const QString* m_last = nullptr;
};
} // namespace tresvane
