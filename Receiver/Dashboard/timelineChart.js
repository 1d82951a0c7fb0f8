// One curve. It fills its canvas from edge to edge, so that all of them, and the bands below, have one time axis.

import {el} from './dom.js';
import {ticks} from './timelineScale.js';

const leastExtent = 0.05; // of the value: noise is not to look like a mountain
let library = null;

/// Chart.js is loaded when the first curve is shown, and again if that failed. A plain script that leaves its name in the window.
export function loadCharts() {
    library ??= new Promise((resolve, reject) => {
        document.head.append(el('script', {src: 'assets/chart.js', onload: () => resolve(window.Chart), onerror: reject}));
    }).catch((error) => {
        library = null;
        throw error;
    });
    return library;
}

/// {canvas, setSpan(span), recolour(), destroy()}
export function buildChart(Chart, curve, canvas, span) {
    let ticksNow = [];
    const chart = new Chart(canvas, {
        type: 'line',
        data: {datasets: [{data: curve.points, borderWidth: 1.5, pointRadius: 0, fill: 'start', stepped: curve.kind === 'battery', spanGaps: false}]},
        options: {
            animation: false,
            events: [], // the cross-hair is shared and not the library's
            maintainAspectRatio: false,
            parsing: false,
            normalized: true,
            layout: {padding: 0, autoPadding: false},
            plugins: {legend: {display: false}, tooltip: {enabled: false}},
            scales: {
                x: {...edgeAxis('height'), afterBuildTicks: (scale) => { scale.ticks = ticksNow.map(({time}) => ({value: time})); }},
                y: {...edgeAxis('width', {maxTicksLimit: 3}), ...limits(curve)},
            },
        },
    });

    function setSpan(next) {
        ticksNow = ticks(next, canvas.clientWidth);
        Object.assign(chart.options.scales.x, {min: next.from, max: next.to});
        chart.update('none');
    }

    function recolour() {
        const style = getComputedStyle(canvas);
        const [dataset] = chart.data.datasets;
        dataset.borderColor = style.getPropertyValue('--curve').trim();
        dataset.backgroundColor = style.getPropertyValue('--curve-fill').trim();
        for (const axis of Object.values(chart.options.scales))
            axis.grid.color = style.getPropertyValue('--grid').trim();
        chart.update('none');
    }

    setSpan(span);
    recolour();
    return {setSpan, recolour, destroy: () => chart.destroy()};
}

function edgeAxis(side, ticksOptions = {autoSkip: false}) {
    return {type: 'linear', ticks: {display: false, ...ticksOptions}, grid: {drawBorder: false, drawTicks: false},
        afterFit: (scale) => { scale[side] = 0; }};
}

function limits({kind, least, most}) {
    if (kind === 'battery')
        return {min: 0, max: 1};
    if (kind === 'cpu')
        return {min: 0, suggestedMax: Math.max(20, most * 1.08)};
    const middle = (least + most) / 2;
    const half = Math.max((most - least) * 0.65, most * leastExtent / 2, 0.01);
    return {min: Math.max(0, middle - half), max: middle + half};
}

export function chartCanvas(curve) {
    return el('canvas', {className: `curve is-${curve.kind}`, role: 'img',
        'aria-label': `${curve.name}, ${curve.format(curve.least)} to ${curve.format(curve.most)}`});
}
