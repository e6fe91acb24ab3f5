// Prints what another independent reader finds in drawings: one JSON object a file and line.
// {file, read, styles: [...], layers: [...], entities: [...]}. The entities are those of model
// space; entities of classes that the reader does not know it leaves out.
import { readFileSync } from 'node:fs';
import createModule from '@mlightcad/libdxfrw-web/dist/libdxfrw.js';

const point = (p) => [p.x, p.y, p.z ?? 0];

/** The items of one of the reader's lists. */
const itemsOf = (list) => Array.from({ length: list.size() }, (_, i) => list.get(i));

// The reader takes every text for Windows-1252, whatever the code page of the drawing. Its letters
// lead back to the bytes, which are GBK.
const byteOf = new Map(Array.from({ length: 256 }, (_, byte) =>
    [new TextDecoder('windows-1252').decode(Uint8Array.of(byte)), byte]));
const gbk = (text) => new TextDecoder('gbk', { fatal: true })
    .decode(Uint8Array.from(Array.from(text, (letter) => byteOf.get(letter))));

const shapes = {
    LINE: (e) => ({ points: [point(e.basePoint), point(e.secPoint)] }),
    LWPOLYLINE: (e) => ({ points: itemsOf(e.getVertexList()).map(point) }),
    TEXT: (e) => ({
        points: [point(e.basePoint)], text: gbk(e.text), height: e.height, rotation: e.angle,
        widthFactor: e.widthScale, style: gbk(e.style),
    }),
    CIRCLE: (e) => ({ points: [point(e.basePoint)], radius: e.radius }),
    SPLINE: (e) => ({ points: itemsOf(e.getFitList()).map(point) }),
    INSERT: (e) => ({
        points: [point(e.basePoint)], name: gbk(e.name), rotation: e.angle,
        scale: [e.xScale, e.yScale, e.zScale],
    }),
    HATCH: (e) => {
        const edges = itemsOf(e.getLoopList()).flatMap((loop) => itemsOf(loop.getObjList()));
        return {
            pattern: e.name, solid: e.solid, associative: e.associative,
            points: edges.map((edge) => point(edge.basePoint)),
            radii: edges.map((edge) => edge.radius),
        };
    },
};

const lib = await createModule({ print: () => {}, printErr: () => {} });
const kindOf = (entity) => entity.eType.constructor.name.replace('DRW_ETYPE_', '');
for (const file of process.argv.slice(2)) {
    const bytes = readFileSync(file);
    const database = new lib.DRW_Database();
    const handler = new lib.DRW_FileHandler();
    handler.database = database;
    const content = bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength);
    const read = handler.fileImport(content, database, false, false);
    console.log(JSON.stringify({
        file,
        read,
        styles: itemsOf(database.textStyles).map((s) => ({
            name: gbk(s.name), font: s.font, bigFont: s.bigFont,
        })),
        layers: itemsOf(database.layers).map((l) => gbk(l.name)),
        entities: itemsOf(database.mBlock.entities).map((e) => ({
            kind: kindOf(e), handle: e.handle, layer: gbk(e.layer), color: e.color,
            ...(shapes[kindOf(e)]?.(e) ?? {}),
        })),
    }));
    handler.delete();
    database.delete();
}
