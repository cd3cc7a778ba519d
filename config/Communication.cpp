#include "config/Communication.h"

namespace VextorJSConfig {

template class ElementBase<CCommunication, ICommunication>;

CCommunication::~CCommunication() { CCommunication::Clear(); }

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
