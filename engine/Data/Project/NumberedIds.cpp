#include "Data/Project/NumberedIds.h"

#include <algorithm>
#include <functional>

namespace VantrelEngine {

std::string_view NumberedIds::operator[](Number number) const {
    const std::size_t begin = number ? _ends[number - 1] : 0;
    return std::string_view{_text}.substr(begin, _ends[number] - begin);
}

NumberedIds::Number NumberedIds::find(std::string_view id) const { return _table.empty() ? None : _table[placeOf(id)]; }

NumberedIds::Number NumberedIds::add(std::string_view id) {
    if(3 * size() >= 2 * _table.size()) growTable();
    Number& number = _table[placeOf(id)];
    if(number != None) return number;
    number = Number(size());
    _text += id;
    _ends.push_back(_text.size());
    return number;
}

std::size_t NumberedIds::placeOf(std::string_view id) const {
    std::size_t place = std::hash<std::string_view>{}(id) & (_table.size() - 1);
    while(_table[place] != None && (*this)[_table[place]] != id) place = (place + 1) & (_table.size() - 1);
    return place;
}

void NumberedIds::growTable() {
    _table.assign(std::max<std::size_t>(2 * _table.size(), 16), None);
    for(Number number = 0; number != size(); ++number) _table[placeOf((*this)[number])] = number;
}

} // namespace VantrelEngine
