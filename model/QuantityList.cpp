#include "QuantityList.h"

k_QuantityList::~k_QuantityList() = default;
