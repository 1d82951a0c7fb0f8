// The black box: curves, bands and marks over one time axis, with one cross-hair.

import {el, fill, quoted} from './dom.js';
import {clock, duration, localTime} from './format.js';
import {buildChart, chartCanvas, loadCharts} from './timelineChart.js';
import {buildCursor} from './timelineCursor.js';
import {axisLane, bandLane, requestLane, requestName, requestText, sessionMarks, tapLane, tapText} from './timelineLanes.js';
import {sampleAt, stateAt, timelineModel} from './timelineModel.js';

const nearby = 8; // pixels: what the cross-hair says is at its place
const worthMore = 5000; // milliseconds before the black box for which there is a button
const mostSqueezed = 20; // times: beyond, nothing would be seen of the black box

/// {element, draw(), point(time), show(time)}, or null when there is nothing to draw. `draw` once it is in the document.
export function buildTimeline(records, end, signal) {
    const model = timelineModel(records, end);
    if (!model)
        return null;
    let span = {from: model.from, to: model.to, end};
    let charts = [];
    const values = new Map(); // where a curve's value at the cross-hair is shown
    const readout = el('output.readout');
    const stack = el('.stack', {tabIndex: 0, role: 'group', 'aria-label': 'Black box',
        'aria-description': 'The arrow keys move the cross-hair, with Control to the next tap, request or change of session.'});
    const moments = [...model.taps, ...model.requests, ...model.sessions].map(({time}) => time).sort((a, b) => a - b);
    const cursor = buildCursor({area: stack, span: () => span, moments, show: describe, zoom: setSpan,
        isZoomed: () => !whole.hidden, reset: () => setSpan(model.from, model.to), signal});
    const sessions = sessionMarks(model.sessions);
    const lanes = [model.requests.length && requestLane(model.requests), model.taps.length && tapLane(model.taps),
        ...model.bands.map(bandLane), axisLane()].filter(Boolean);
    const canvases = model.curves.map(chartCanvas);
    const all = el('button.small', {type: 'button', 'aria-pressed': 'false', onclick: () => isAll() ? setSpan(model.from, model.to) : setSpan(model.first, model.to)}, 'With earlier sessions');
    const whole = el('button.small', {type: 'button', hidden: true, onclick: () => setSpan(model.from, model.to)}, 'Whole black box');

    cursor.layer.prepend(...sessions.elements);
    fill(stack, model.curves.map((curve, index) => line(curve.name, [valueOf(curve), el('span.lane-range', rangeOf(curve))], el('.track.is-curve', canvases[index]))),
        lanes.map(({name, track}) => line(name, null, track)), cursor.layer);
    const element = el('section.part.timeline', el('.timeline-head', el('h2', 'Black box'), readout, whole,
        model.first < model.from - worthMore && model.to - model.first < mostSqueezed * (model.to - model.from) && all), stack);
    describe(null);

    function valueOf(curve) {
        const value = el('span.lane-value');
        values.set(curve, value);
        return value;
    }

    function isAll() {
        return span.from === model.first && model.first < model.from;
    }

    function setSpan(from, to) {
        span = {from, to, end};
        all.setAttribute('aria-pressed', String(isAll()));
        whole.hidden = from === model.from && to === model.to;
        arrange();
        cursor.place(null);
    }

    function arrange() {
        for (const each of [...charts, ...lanes, sessions])
            (each.setSpan ?? each.place)(span);
    }

    function describe(time) {
        for (const curve of model.curves)
            values.get(curve).textContent = valueText(curve, time);
        fill(readout, time === null ? '' : [el('b', clock(time)), ' ', distance(time), ' ', marksAt(time), el('span.off-screen', valuesAt(time))]);
        readout.title = time === null ? '' : localTime(time);
    }

    /// In words, for who can't see them beside the curves.
    function valuesAt(time) {
        return model.curves.map((curve) => `; ${curve.name} ${valueText(curve, time)}`).join('');
    }

    function distance(time) {
        const before = end - time;
        return Math.abs(before) < 1 ? 'at the report' : `${duration(Math.abs(before))} ${before > 0 ? 'before' : 'after'}`;
    }

    function marksAt(time) {
        const reach = nearby * (span.to - span.from) / Math.max(1, cursor.layer.clientWidth);
        const texts = [
            ...model.taps.filter((tap) => Math.abs(tap.time - time) < reach).map(tapText),
            ...model.requests.filter((each) => time > each.time - reach && time < each.time + (each.duration ?? 0) + reach)
                .map((request) => requestText(request, requestName(request))),
            ...model.sessions.filter((change) => Math.abs(change.time - time) < reach).map(({text}) => text),
        ];
        const states = model.bands.map(({pieces}) => stateAt(pieces, time)?.label).filter(Boolean);
        const all = [...states, ...texts.slice(0, 2)];
        return all.length ? el('span.faint', '· ', quoted(all.join(' · '))) : null;
    }

    async function draw() {
        arrange();
        const observer = new ResizeObserver(arrange);
        observer.observe(stack);
        signal.addEventListener('abort', () => observer.disconnect());
        const Chart = await loadCharts().catch(() => null);
        if (!Chart)
            return stack.prepend(el('p.problem', {role: 'alert'}, 'The curves can’t be drawn.'));
        if (signal.aborted)
            return;
        charts = model.curves.map((curve, index) => buildChart(Chart, curve, canvases[index], span));
        const scheme = matchMedia('(prefers-color-scheme: dark)');
        scheme.addEventListener('change', () => charts.forEach((chart) => chart.recolour()), {signal});
        signal.addEventListener('abort', () => charts.forEach((chart) => chart.destroy()));
    }

    /// Also where the reader does not see it yet.
    function show(time) {
        if (time < span.from || time > span.to)
            setSpan(model.from, model.to);
        element.scrollIntoView({block: 'nearest'});
        stack.focus({preventScroll: true});
        cursor.place(time);
    }

    return {element, draw, show, point: cursor.place};
}

function rangeOf({least, most, format}) {
    const [from, to] = [format(least), format(most)];
    return from === to ? '' : `${from} – ${to}`;
}

/// At the cross-hair, else the last one.
function valueText(curve, time) {
    const sample = time === null ? curve.points.at(-1) : sampleAt(curve.points, time);
    if (!sample || Number.isNaN(sample.y))
        return '–';
    return [curve.format(sample.y), sample.note].filter(Boolean).join(', ');
}

function line(name, value, track) {
    return el('.lane', el('.lane-name', el('span', name), value), track);
}
