// The black box as what the time line draws: curves, bands and marks, and the span of time they cover.

import {megabytes, percent} from './format.js';
import {batteryState, networkName, orientationName, sessionChange, sessionName} from './names.js';

const mostPoints = 2000; // of a curve; a screen has no more columns
const mostMarks = 500;
const withoutSamples = 60000; // milliseconds: what is shown when there are only taps and requests

/// {curves, bands, sessions, taps, requests, from, to, first}: `from` to `to` is the black box, `first` the oldest of all.
export function timelineModel(records, end) {
    const sampled = [records.cpu, records.appMemory, records.memory, records.disk, records.battery, records.network, records.orientation];
    const sampleTimes = sampled.flatMap((list) => list.length ? [list[0].time, list.at(-1).time] : []);
    const others = [records.taps, records.requests, records.sessions].flatMap((list) => list.length ? [list[0].time, list.at(-1).time] : []);
    if (sampleTimes.length + others.length === 0)
        return null;
    const to = Math.max(end, ...sampleTimes);
    const from = Math.min(to - 1000, ...(sampleTimes.length ? sampleTimes : [Math.max(to - withoutSamples, Math.min(...others))]));
    return {
        from, to, end,
        first: Math.min(from, ...others),
        curves: [
            curve('CPU', records.cpu, (value) => `${value.toFixed(value < 10 ? 1 : 0)} %`, 'cpu'),
            curve('App memory', records.appMemory, megabytes, 'app'),
            curve('Device memory used', records.memory, megabytes, 'memory'),
            curve('Disk used', records.disk, megabytes, 'disk'),
            curve('Battery', records.battery, percent, 'battery', (record) => batteryState(record.state)),
        ].filter(Boolean),
        bands: [
            band('Network', records.network, to, ({type, name}) => networkName(type, name), ({type}) => type === 'offline' ? 'bad' : type ? 'good' : 'none'),
            band('Orientation', records.orientation, to, ({code}) => orientationName(code), ({code}) => Number(code) > 1 ? 'other' : 'none'),
            band('Session', records.sessions, to, ({code}) => sessionName(code), ({code}) => code === '0' ? 'good' : code === '1' ? 'other' : 'none'),
        ].filter(Boolean),
        sessions: records.sessions.slice(-mostMarks).map(({time, code}) => ({time, text: `Application ${sessionChange(code)}`})),
        taps: records.taps.slice(-mostMarks),
        requests: records.requests.slice(-mostMarks),
    };
}

function curve(name, samples, format, kind, note = () => '') {
    if (!samples.some(({value}) => value !== null))
        return null;
    const stride = Math.ceil(samples.length / mostPoints);
    const points = samples.filter((_, index) => index % stride === 0)
        .map((sample) => ({x: sample.time, y: sample.value ?? NaN, note: note(sample)}));
    const known = points.map(({y}) => y).filter((y) => !Number.isNaN(y));
    const least = known.reduce((a, b) => Math.min(a, b), Infinity);
    const most = known.reduce((a, b) => Math.max(a, b), -Infinity);
    return {name, kind, points, format, least, most};
}

/// Equal states in a row are one piece.
function band(name, records, to, label, kind) {
    const pieces = [];
    for (const record of records) {
        const piece = {from: record.time, to, label: label(record), kind: kind(record)};
        const last = pieces.at(-1);
        if (last?.label === piece.label)
            continue;
        if (last)
            last.to = piece.from;
        pieces.push(piece);
    }
    return pieces.length ? {name, pieces: pieces.slice(-mostMarks)} : null;
}

/// The sample in force at a time; null before the first.
export function sampleAt(points, time) {
    let low = 0;
    let high = points.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (points[middle].x <= time)
            low = middle + 1;
        else
            high = middle;
    }
    return points[low - 1] ?? null;
}

/// The piece of a band that covers a time.
export function stateAt(pieces, time) {
    return pieces.findLast(({from, to}) => from <= time && time <= to) ?? null;
}
