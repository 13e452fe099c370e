# What is compiled into the DLL, which keeps it to itself, and into the host.
set(parts_sources
    access.cpp
    access_life.cpp
    access_link.cpp
    access_object.cpp
    access_spot.cpp
    access_system.cpp
    access_terms.cpp
    by_name.cpp
    color_parts.cpp
    describe.cpp
    field_parts.cpp
    item_parts.cpp
    key_code.cpp
    part.cpp
    part_keys.cpp
    single_parts.cpp
    tree_parts.cpp
    typed_text.cpp
    value_parts.cpp
)
list(TRANSFORM parts_sources PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
