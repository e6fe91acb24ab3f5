// Prints what an independent reader finds in drawings: one JSON object a file and line.
// {file, error, codePage, classes: [...], unknown: n, styles: [...], layers: [...], entities: [...]}
// error is the reader's own bit field: 0 is no complaint, 4 says that a class is not its own.
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { LibreDwg } from '@mlightcad/libredwg-web';

const here = dirname(fileURLToPath(import.meta.url));
const wasm = join(here, 'node_modules/@mlightcad/libredwg-web/wasm/');
const point = (p) => [p.x, p.y, p.z ?? 0];

const shapes = {
    LINE: (e) => ({ points: [point(e.startPoint), point(e.endPoint)] }),
    LWPOLYLINE: (e) => ({
        points: e.vertices.map(point),
        widths: e.vertices.map((v) => [v.startWidth ?? 0, v.endWidth ?? 0]),
        constantWidth: e.constantWidth,
        flag: e.flag,
    }),
    TEXT: (e) => ({
        points: [point(e.startPoint)], text: e.text, height: e.textHeight,
        rotation: e.rotation, widthFactor: e.xScale, style: e.styleName,
    }),
    CIRCLE: (e) => ({ points: [point(e.center)], radius: e.radius }),
    SPLINE: (e) => ({ points: e.fitPoints.map(point) }),
    INSERT: (e) => ({
        points: [point(e.insertionPoint)], name: e.name, rotation: e.rotation,
        scale: [e.xScale, e.yScale, e.zScale],
    }),
    HATCH: (e) => ({
        pattern: e.patternName, solid: e.solidFill, associative: e.associativity,
        points: e.boundaryPaths.flatMap((path) => path.edges.map((edge) => point(edge.center))),
        radii: e.boundaryPaths.flatMap((path) => path.edges.map((edge) => edge.radius)),
        boundaries: e.boundaryPaths.map((path) => path.numberOfBoundaryObjects ?? null),
    }),
};

const lib = await LibreDwg.create(wasm);
for (const file of process.argv.slice(2)) {
    const module = lib.wasmInstance;
    module.FS.writeFile('sheet.dwg', readFileSync(file));
    const read = module.dwg_read_file('sheet.dwg');
    module.FS.unlink('sheet.dwg');
    const { database, stats } = lib.convertEx(read.data);
    const result = {
        file,
        error: read.error,
        codePage: lib.dwg_get_codepage(read.data),
        classes: database.classes.map((c) => ({
            dxf: c.dxfName, cpp: c.cppName, app: c.appName, flags: c.capabilitiesFlag,
            entity: c.isAnEntityFlag,
        })),
        unknown: stats.unknownEntityCount,
        modelSpaceCount: lib.dwg_getall_entities_in_model_space(read.data).length,
        styles: database.tables.STYLE.entries.map((s) => ({
            name: s.name, font: s.font, bigFont: s.bigFont,
        })),
        layers: database.tables.LAYER.entries.map((l) => l.name),
        entities: database.entities.map((e) => ({
            kind: e.type, handle: e.handle, layer: e.layer, color: e.colorIndex,
            ...(shapes[e.type]?.(e) ?? {}),
        })),
    };
    lib.dwg_free(read.data);
    console.log(JSON.stringify(result));
}
