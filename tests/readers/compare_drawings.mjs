// Compares a drawing before and after it was written back (rewrite_drawing), object by object, in
// two ways: the bits of every object as the object map finds them, and everything an independent
// reader tells of the file as DXF: header variables, classes, tables, blocks, entities, objects.
//
//   node compare_drawings.mjs [--anew] BEFORE AFTER [BEFORE AFTER ...]
//
// A line a pair: name, objects, objects with other bits, parts the reader tells, those it tells
// otherwise. Exit status 1 when something differs. With --anew other bits are only counted: a value
// may be coded in more than one way. What is told otherwise of the same bits is noise of the reader
// and not counted.
import { readFileSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { LibreDwg } from '@mlightcad/libredwg-web';

const SAVE_TIMES = new Set(['$TDUPDATE', '$TDUUPDATE']);
const OBJECT_MAP = 2;
const PREVIEW_POSITION = 13;
const LOCATORS = 21;
const SENTINEL = 16;

/** The file's sections by number. */
function sectionsOf(file) {
    const sections = new Map();
    for (let i = 0; i < file.readUInt32LE(LOCATORS); ++i) {
        const at = LOCATORS + 4 + 9 * i;
        const address = file.readUInt32LE(at + 1);
        sections.set(file[at], file.subarray(address, address + file.readUInt32LE(at + 5)));
    }
    return sections;
}

/** Numbers in bytes of seven bits, the lowest first; signed ones have their sign in the last. */
function modularChar(bytes, at, signed) {
    let value = 0n;
    let shift = 0n;
    for (;; ++at, shift += 7n) {
        const byte = bytes[at];
        if (byte & 0x80) {
            value |= BigInt(byte & 0x7f) << shift;
        } else {
            const last = signed ? byte & 0x3f : byte;
            value |= BigInt(last) << shift;
            return [signed && byte & 0x40 ? -value : value, at + 1];
        }
    }
}

/** An object's bytes, its check sum included. */
function objectAt(file, position) {
    let size = 0;
    let shift = 0;
    let at = position;
    for (;; at += 2, shift += 15) {
        const word = file.readUInt16LE(at);
        size += (word & 0x7fff) * 2 ** shift;
        if (!(word & 0x8000)) {
            return file.subarray(at + 2, at + 2 + size + 2);
        }
    }
}

/** The bytes of all objects by handle. */
function objectsOf(file) {
    const objects = new Map();
    const map = sectionsOf(file).get(OBJECT_MAP);
    for (let at = 0, size = map.readUInt16BE(0); size > 2; at += size + 2, size = map.readUInt16BE(at)) {
        let handle = 0n;
        let position = 0n;
        for (let i = at + 2; i < at + size; ) {
            let step;
            [step, i] = modularChar(map, i, false);
            handle += step;
            [step, i] = modularChar(map, i, true);
            position += step;
            objects.set(handle.toString(16).toUpperCase(), objectAt(file, Number(position)));
        }
    }
    return objects;
}

function previewOf(file) {
    const at = file.readUInt32LE(PREVIEW_POSITION);
    return at === 0 ? Buffer.alloc(0) : file.subarray(at, at + SENTINEL + 4 + file.readUInt32LE(at + SENTINEL));
}

const lib = (await LibreDwg.create(join(dirname(fileURLToPath(import.meta.url)),
    'node_modules/@mlightcad/libredwg-web/wasm/'))).wasmInstance;

/** What the independent reader tells: by name of the variable, by class, by handle. */
function tellingOf(file) {
    lib.FS.writeFile('drawing.dwg', file);
    const error = lib.dwg_write_dxf('drawing.dwg', 'drawing.dxf');
    const lines = Buffer.from(lib.FS.readFile('drawing.dxf')).toString('latin1').split(/\r?\n/);
    lib.FS.unlink('drawing.dxf');
    const parts = new Map([['error', String(error)]]);
    let part = [];
    let key = '';
    const finish = () => {
        if (key !== '') {
            parts.set(key, (parts.get(key) ?? '') + part.join('\n'));
        }
    };
    for (let i = 0; i + 1 < lines.length; i += 2) {
        const code = lines[i].trim();
        const value = lines[i + 1];
        if (code === '0' || code === '9') {
            finish();
            part = [];
            key = value;
        } else if (code === '5' || code === '105') {
            key = `${part[0]?.split('=')[1]} ${value.trim()}`;
        } else if (key === 'CLASS' && code === '1') {
            key = `CLASS ${value}`;
        }
        part.push(`${code}=${value}`);
    }
    finish();
    return parts;
}

/** Keys whose values differ, or that only one of the two has. */
function differences(before, after, same) {
    return [...new Set([...before.keys(), ...after.keys()])].filter((key) =>
        !before.has(key) || !after.has(key) || !same(before.get(key), after.get(key)));
}

const anew = process.argv[2] === '--anew';
const files = process.argv.slice(anew ? 3 : 2);
let failed = false;
for (let i = 0; i + 1 < files.length; i += 2) {
    const [before, after] = [readFileSync(files[i]), readFileSync(files[i + 1])];
    const objects = objectsOf(before);
    const bits = new Set(differences(objects, objectsOf(after), (a, b) => a.equals(b)));
    const told = tellingOf(before);
    const again = tellingOf(after);
    const isSameBits = (handle) => objects.has(handle) && !bits.has(handle);
    const parts = differences(told, again, (a, b) => a === b)
        .filter((name) => !SAVE_TIMES.has(name) && !isSameBits(name.split(' ')[1]));
    if (!previewOf(before).equals(previewOf(after))) {
        parts.push('preview');
    }
    failed ||= parts.length > 0 || (!anew && bits.size > 0);
    console.log([basename(files[i]), `${objects.size} objects`, `${bits.size} with other bits`,
        `${told.size} parts`, `${parts.length} told otherwise`].join('\t'));
    for (const name of parts) {
        console.log(`--- ${name}\n${told.get(name) ?? ''}\n+++\n${again.get(name) ?? ''}`);
    }
    if (!anew && bits.size > 0) {
        console.log(`other bits: ${[...bits].join(' ')}`);
    }
}
process.exit(failed ? 1 : 0);
