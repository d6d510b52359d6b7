#pragma once

namespace kerlune {

// Creates what is missing; running it again changes nothing.
inline constexpr const char *kSchema = R"sql(
CREATE TABLE IF NOT EXISTS meta(
    key TEXT PRIMARY KEY,
    value TEXT);
CREATE TABLE IF NOT EXISTS fonts(
    ps_name TEXT PRIMARY KEY,
    family TEXT NOT NULL,
    style TEXT,
    path TEXT,
    mtime REAL,
    size INTEGER,
    weight REAL,
    width REAL,
    slant REAL,
    symbolic INTEGER,
    is_variable INTEGER,
    is_mono INTEGER,
    is_color INTEGER,
    is_italic INTEGER,
    x_height REAL,
    cap_height REAL,
    glyph_count INTEGER,
    classification INTEGER,
    script_mask INTEGER,
    version TEXT,
    foundry TEXT,
    designer TEXT,
    license_url TEXT,
    copyright TEXT,
    fs_type INTEGER);
CREATE INDEX IF NOT EXISTS idx_fonts_family ON fonts(family);
CREATE INDEX IF NOT EXISTS idx_fonts_class ON fonts(classification);
CREATE TABLE IF NOT EXISTS favorites(
    family TEXT PRIMARY KEY,
    added REAL);
CREATE TABLE IF NOT EXISTS collections(
    id TEXT PRIMARY KEY,
    name TEXT NOT NULL,
    created REAL,
    sort_order INTEGER);
CREATE TABLE IF NOT EXISTS collection_items(
    collection_id TEXT NOT NULL,
    family TEXT NOT NULL,
    PRIMARY KEY(collection_id, family));
CREATE TABLE IF NOT EXISTS recents(
    family TEXT PRIMARY KEY,
    used REAL);
CREATE TABLE IF NOT EXISTS fingerprints(
    ps_name TEXT PRIMARY KEY,
    vector BLOB);
CREATE TABLE IF NOT EXISTS tags(
    family TEXT NOT NULL,
    tag TEXT NOT NULL,
    PRIMARY KEY(family, tag));
CREATE TABLE IF NOT EXISTS smart_collections(
    id TEXT PRIMARY KEY,
    name TEXT NOT NULL,
    filters TEXT NOT NULL,
    created REAL);
)sql";

} // namespace kerlune
