#include <Vantrel/EngineData/TextManager.h>

#include <algorithm>

namespace VantrelEngine {

using namespace Corrade::Containers::Literals;
using Corrade::Containers::StringView;

const StringView TextManager::EnumValuesHorizontalAlignment[]{"left"_s, "center"_s, "right"_s};
const StringView TextManager::EnumValuesVerticalAlignment[]{"baseline"_s, "top"_s, "middle"_s, "bottom"_s};
const StringView TextManager::EnumValuesEffect[]{"none"_s, "outline"_s};

TextManager::TextManager(std::size_t capacity):
    ComponentManager{"text", capacity, 1, [](ComponentManager& manager, Id component) {
                         StringArray& texts = static_cast<TextManager&>(manager)._texts;
                         if(component < texts.size()) texts.set(component, {});
                     }} {
    hideWithObjects();
}

void TextManager::allocate(std::size_t components, std::size_t textCapacity) {
    ComponentManager::allocate(components);
    _texts.reserve(components, textCapacity);
}

StringView TextManager::text(Id component) const {
    slot(component);
    return component < _texts.size() ? _texts[component] : ""_s;
}

void TextManager::setText(Id component, StringView text) {
    changed(component);
    _texts.setSize(std::max<std::size_t>(_texts.size(), component + 1));
    _texts.set(component, text);
}

TextManager::Settings& TextManager::changed(Id component) {
    Settings& settings = _settings[slot(component)];
    settings.isDirty = true;
    return settings;
}

void TextManager::setHorizontalAlignment(Id component, Magnum::UnsignedByte alignment) {
    changed(component).horizontalAlignment = alignment;
}

void TextManager::setVerticalAlignment(Id component, Magnum::UnsignedByte alignment) {
    changed(component).verticalAlignment = alignment;
}

void TextManager::setEffect(Id component, Magnum::UnsignedByte effect) { changed(component).effect = effect; }

void TextManager::setCharacterSpacing(Id component, Magnum::Float spacing) {
    changed(component).characterSpacing = spacing;
}

void TextManager::setLineSpacing(Id component, Magnum::Float spacing) { changed(component).lineSpacing = spacing; }

void TextManager::setFont(Id component, Id font) { changed(component).font = font; }

void TextManager::setDirty(bool dirty) {
    for(const Id component: components()) _settings[slot(component)].isDirty = dirty;
}

}
