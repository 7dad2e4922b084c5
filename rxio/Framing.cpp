#include "rxio/Framing.h"

#include <QString>

namespace rxio {

namespace {

constexpr qsizetype kHeaderSize = 8; // two letters and six hex digits

bool IsHex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

int HexValue(char c) {
    return c <= '9' ? c - '0' : c - 'A' + 10;
}

bool IsIdChar(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// The frame kind that `a` `b` name, if any.
bool KindOf(char a, char b, EFrameKind& kind) {
    if (a == 'R' && b == 'E')
        kind = EFrameKind::Reply;
    else if (a == 'E' && b == 'R')
        kind = EFrameKind::Error;
    else if (a == 'N' && b == 'T')
        kind = EFrameKind::Notice;
    else
        return false;
    return true;
}

bool CanStart(char c) {
    return c == '$' || c == 'R' || c == 'E' || c == 'N';
}

// Where a frame header starts at or after `from`, before `to`; -1 if none. A stray '$' must not
// swallow the frame that follows it.
qsizetype FindHeader(const QByteArray& buffer, qsizetype from, qsizetype to) {
    EFrameKind kind{};
    for (qsizetype i = from; i + kHeaderSize < std::min(to, buffer.size()); ++i) {
        if (!KindOf(buffer.at(i), buffer.at(i + 1), kind))
            continue;
        bool hex = true;
        for (qsizetype k = 2; k < kHeaderSize && hex; ++k)
            hex = IsHex(buffer.at(i + k));
        if (hex && buffer.at(i + kHeaderSize) == '%')
            return i;
    }
    return -1;
}

} // namespace

void CFrameParser::Reset() {
    m_buffer.clear();
    m_discardNmea = 0;
}

void CFrameParser::Feed(const QByteArray& bytes) {
    m_buffer.append(bytes);
    for (;;) {
        if (m_discardNmea > 0) {
            const qsizetype end = m_buffer.indexOf('\n');
            if (end < 0) {
                m_garbage += static_cast<std::uint64_t>(m_buffer.size());
                m_buffer.clear();
                return;
            }
            m_garbage += static_cast<std::uint64_t>(end + 1);
            m_buffer.remove(0, end + 1);
            m_discardNmea = 0;
        }
        if (m_buffer.isEmpty())
            return;
        const EStep step = m_buffer.front() == '$' ? TakeNmea() : TakeFrame();
        if (step == EStep::NeedMore)
            return;
        if (step == EStep::Garbage) {
            // Skip to the next byte that could start something.
            qsizetype skip = 1;
            while (skip < m_buffer.size() && !CanStart(m_buffer.at(skip)))
                ++skip;
            m_garbage += static_cast<std::uint64_t>(skip);
            m_buffer.remove(0, skip);
        }
    }
}

CFrameParser::EStep CFrameParser::TakeNmea() {
    const qsizetype end = m_buffer.indexOf('\n');
    const qsizetype header = FindHeader(m_buffer, 1, end < 0 ? m_buffer.size() : end);
    if (header > 0) {
        m_garbage += static_cast<std::uint64_t>(header);
        m_buffer.remove(0, header);
        return EStep::Done;
    }
    if (end < 0) {
        if (m_buffer.size() > static_cast<qsizetype>(kMaxNmeaLine)) {
            m_discardNmea = 1;
            m_garbage += static_cast<std::uint64_t>(m_buffer.size());
            m_buffer.clear();
        }
        return EStep::NeedMore;
    }
    if (end + 1 > static_cast<qsizetype>(kMaxNmeaLine)) {
        m_garbage += static_cast<std::uint64_t>(end + 1);
        m_buffer.remove(0, end + 1);
        return EStep::Done;
    }
    QByteArray line = m_buffer.left(end);
    m_buffer.remove(0, end + 1);
    if (line.endsWith('\r'))
        line.chop(1);
    if (onNmea)
        onNmea(line);
    return EStep::Done;
}

CFrameParser::EStep CFrameParser::TakeFrame() {
    const qsizetype have = m_buffer.size();
    EFrameKind kind{};
    if (have >= 2 && !KindOf(m_buffer.at(0), m_buffer.at(1), kind))
        return EStep::Garbage;
    std::size_t length = 0;
    for (qsizetype i = 2; i < std::min(have, kHeaderSize); ++i) {
        if (!IsHex(m_buffer.at(i)))
            return EStep::Garbage;
        length = length * 16 + static_cast<std::size_t>(HexValue(m_buffer.at(i)));
    }
    if (have < kHeaderSize)
        return have >= 1 && CanStart(m_buffer.at(0)) ? EStep::NeedMore : EStep::Garbage;
    if (length < 2 || length > kMaxPayload)
        return EStep::Garbage;
    if (have > kHeaderSize && m_buffer.at(kHeaderSize) != '%')
        return EStep::Garbage;
    // The id must close within its 8 characters, so a wrong header is found early.
    const qsizetype idStart = kHeaderSize + 1;
    qsizetype idEnd = idStart;
    while (idEnd < have && idEnd - idStart <= 8 && IsIdChar(m_buffer.at(idEnd)))
        ++idEnd;
    if (idEnd < have && (m_buffer.at(idEnd) != '%' || idEnd - idStart > 8))
        return EStep::Garbage;
    const qsizetype total = kHeaderSize + static_cast<qsizetype>(length) + 1;
    if (have < total)
        return EStep::NeedMore;
    if (idEnd >= kHeaderSize + static_cast<qsizetype>(length) || m_buffer.at(total - 1) != '\n')
        return EStep::Garbage;

    Frame frame{kind, m_buffer.mid(idStart, idEnd - idStart),
                m_buffer.mid(idEnd + 1, total - 1 - (idEnd + 1))};
    m_buffer.remove(0, total);
    if (onFrame)
        onFrame(frame);
    return EStep::Done;
}

QByteArray EncodeCommand(const QByteArray& id, const QString& command) {
    return '%' + id + '%' + command.toUtf8() + "\r\n";
}

} // namespace rxio
