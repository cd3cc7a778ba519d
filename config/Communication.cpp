#include "config/Communication.h"

namespace VextorJSConfig {

template class ElementBase<CCommunication, ICommunication>;

CCommunication::~CCommunication() { CCommunication::Clear(); }

}  // namespace VextorJSConfig
