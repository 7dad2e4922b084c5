#include "rxio/PortAddr.h"

#include <utility>

namespace rxio {

IPortAddr::~IPortAddr() = default;

CPortAddr::CPortAddr(EPortType type, QString name) : m_type(type), m_name(std::move(name)) {}

int CPortAddr::GetType() const {
    return static_cast<int>(m_type);
}

QString CPortAddr::GetName() const {
    return m_name;
}

} // namespace rxio
