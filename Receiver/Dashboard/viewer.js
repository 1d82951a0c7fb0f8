// A picture in the whole window: wheel, pinch, drag, double click and keys zoom and move it.

import {el} from './dom.js';
import {icon} from './icons.js';
import {percent} from './format.js';
import {say} from './notify.js';

const largest = 16;
const step = 1.25;

export function openViewer(source, name) {
    const image = el('img', {src: source, alt: name, draggable: 'false'});
    const stage = el('.viewer-stage', {tabIndex: 0, role: 'group', 'aria-label': 'Picture'}, image);
    const scaleText = el('output.viewer-scale');
    const button = (label, action, ...content) => el('button.quiet', {type: 'button', 'aria-label': label, onclick: action}, content);
    const dialog = el('dialog.viewer', {'aria-label': name},
        stage, el('.viewer-bar',
            button('Zoom out', () => zoom(1 / step), '−'), scaleText, button('Zoom in', () => zoom(step), '+'),
            button('Fit', fit, 'Fit'), button('Actual size', () => zoomTo(1), '1:1'),
            button('Close', () => dialog.close(), icon('close'))));
    const view = {scale: 1, x: 0, y: 0}; // of the picture's upper left corner on the stage
    const pointers = new Map();
    let moved = 0;

    function apply() {
        const [width, height] = [image.naturalWidth * view.scale, image.naturalHeight * view.scale];
        view.x = held(view.x, width, stage.clientWidth);
        view.y = held(view.y, height, stage.clientHeight);
        image.style.transform = `translate(${view.x}px, ${view.y}px) scale(${view.scale})`;
        image.classList.toggle('is-pixelated', view.scale >= 3);
        scaleText.textContent = percent(view.scale);
    }

    function fitScale() {
        return Math.min(1, stage.clientWidth / (image.naturalWidth || 1), stage.clientHeight / (image.naturalHeight || 1));
    }

    function fit() {
        view.scale = fitScale();
        view.x = view.y = 0;
        apply();
    }

    function zoomTo(scale, x = stage.clientWidth / 2, y = stage.clientHeight / 2) {
        const wanted = Math.min(largest, Math.max(Math.min(fitScale(), 0.1), scale));
        view.x = x - (x - view.x) * wanted / view.scale;
        view.y = y - (y - view.y) * wanted / view.scale;
        view.scale = wanted;
        apply();
    }

    const zoom = (factor, x, y) => zoomTo(view.scale * factor, x, y);

    function move(x, y) {
        view.x += x;
        view.y += y;
        apply();
    }

    stage.addEventListener('wheel', (event) => {
        event.preventDefault();
        zoom(Math.exp(-event.deltaY * (event.ctrlKey ? 0.01 : 0.002)), ...placeOf(event, stage));
    }, {passive: false});
    stage.addEventListener('pointerdown', (event) => {
        pointers.set(event.pointerId, event);
        moved = pointers.size > 1 ? Infinity : 0;
        stage.setPointerCapture(event.pointerId);
    });
    stage.addEventListener('pointermove', (event) => {
        const before = pointers.get(event.pointerId);
        if (!before)
            return;
        const other = [...pointers.values()].find((each) => each.pointerId !== event.pointerId);
        if (other)
            zoom(distance(event, other) / (distance(before, other) || 1), ...placeOf(middle(event, other), stage));
        else
            move(event.clientX - before.clientX, event.clientY - before.clientY);
        moved += distance(event, before);
        pointers.set(event.pointerId, event);
    });
    for (const type of ['pointerup', 'pointercancel'])
        stage.addEventListener(type, (event) => pointers.delete(event.pointerId));
    stage.addEventListener('click', (event) => {
        if (moved < 5)
            view.scale === fitScale() ? zoomTo(Math.max(1, view.scale * 2), ...placeOf(event, stage)) : fit();
    });
    const keys = {
        '+': () => zoom(step), '=': () => zoom(step), '-': () => zoom(1 / step), 0: fit, 1: () => zoomTo(1),
        ArrowLeft: () => move(60, 0), ArrowRight: () => move(-60, 0), ArrowUp: () => move(0, 60), ArrowDown: () => move(0, -60),
    };
    dialog.addEventListener('keydown', (event) => {
        if (!Object.hasOwn(keys, event.key) || event.ctrlKey || event.metaKey || event.altKey)
            return;
        event.preventDefault();
        keys[event.key]();
    });
    dialog.addEventListener('close', () => {
        observer.disconnect();
        dialog.remove();
    });
    const observer = new ResizeObserver(fit);
    document.body.append(dialog);
    dialog.showModal();
    stage.focus();
    image.decode().then(fit, () => {
        dialog.close();
        say('The picture can’t be shown.');
    });
    observer.observe(stage);
}

/// A side that fits is centred; a longer one can't be moved off the stage.
function held(position, length, room) {
    return length <= room ? (room - length) / 2 : Math.min(0, Math.max(room - length, position));
}

function placeOf({clientX, clientY}, stage) {
    const {left, top} = stage.getBoundingClientRect();
    return [clientX - left, clientY - top];
}

function distance(a, b) {
    return Math.hypot(a.clientX - b.clientX, a.clientY - b.clientY);
}

function middle(a, b) {
    return {clientX: (a.clientX + b.clientX) / 2, clientY: (a.clientY + b.clientY) / 2};
}
