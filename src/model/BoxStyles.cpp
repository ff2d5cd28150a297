#include "model/BoxStyles.h"

#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<ColorStop>::info() {
    static const RecordInfo table{{
        optional<&ColorStop::color>("color"),
        optional<&ColorStop::location>("location"),
    }};
    return table;
}

const RecordInfo& RecordTable<Fill>::info() {
    static const RecordInfo table{{
        optional<&Fill::type>("type"),
        optional<&Fill::URL>("URL"),
        optional<&Fill::fillMode>("fillMode"),
        optional<&Fill::horizontalAlignment>("horizontalAlignment"),
        optional<&Fill::verticalAlignment>("verticalAlignment"),
        optional<&Fill::attachment>("attachment"),
        optional<&Fill::repeatMode>("repeat"),
        optional<&Fill::width>("width"),
        optional<&Fill::height>("height"),
        optional<&Fill::stillURL>("stillURL"),
        optional<&Fill::loop>("loop"),
        optional<&Fill::angle>("angle"),
        optional<&Fill::colorStops>("colorStops"),
    }};
    return table;
}

const RecordInfo& RecordTable<ANFStrokeStyle>::info() {
    static const RecordInfo table{{
        optional<&ANFStrokeStyle::width>("width"),
        optional<&ANFStrokeStyle::color>("color"),
        optional<&ANFStrokeStyle::style>("style"),
    }};
    return table;
}

const RecordInfo& RecordTable<Border>::info() {
    static const RecordInfo table{{
        optional<&Border::all>("all"),
        optional<&Border::top>("top"),
        optional<&Border::bottom>("bottom"),
        optional<&Border::left>("left"),
        optional<&Border::right>("right"),
    }};
    return table;
}

const RecordInfo& RecordTable<CornerMask>::info() {
    static const RecordInfo table{{
        optional<&CornerMask::type>("type"),
        optional<&CornerMask::radius>("radius"),
        optional<&CornerMask::topLeft>("topLeft"),
        optional<&CornerMask::topRight>("topRight"),
        optional<&CornerMask::bottomLeft>("bottomLeft"),
        optional<&CornerMask::bottomRight>("bottomRight"),
    }};
    return table;
}

const RecordInfo& RecordTable<ComponentShadowOffset>::info() {
    static const RecordInfo table{{
        optional<&ComponentShadowOffset::x>("x"),
        optional<&ComponentShadowOffset::y>("y"),
    }};
    return table;
}

const RecordInfo& RecordTable<ComponentShadow>::info() {
    static const RecordInfo table{{
        optional<&ComponentShadow::color>("color"),
        optional<&ComponentShadow::opacity>("opacity"),
        optional<&ComponentShadow::radius>("radius"),
        optional<&ComponentShadow::offset>("offset"),
    }};
    return table;
}

} // namespace quillon
