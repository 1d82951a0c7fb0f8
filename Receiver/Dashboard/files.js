// The screenshot and what is attached. Bytes are shown only of plain raster images; all else is only ever downloaded.

import {el, quoted} from './dom.js';
import {bytes} from './format.js';
import {icon} from './icons.js';
import {asNumber, visible} from './text.js';
import {openViewer} from './viewer.js';

const rasterTypes = new Set(['image/png', 'image/jpeg', 'image/gif', 'image/webp']);
const largestPreview = 10 * 1024 * 1024; // bytes

const fileAddress = (file) => '../api/1.0/files/' + encodeURIComponent(file.id);
const isRaster = (file) => rasterTypes.has(file.content_type);

/// The marked screenshot, large; null when there is none to show. A wide one gets the page's whole width.
export function screenshotFigure(file, report) {
    if (!file || !isRaster(file))
        return null;
    const [width, height] = [asNumber(report.screen_width), asNumber(report.screen_height)];
    const image = el('img', {src: fileAddress(file), alt: 'Screenshot', decoding: 'async'});
    if (width > 0 && height > 0)
        image.style.aspectRatio = `${width} / ${height}`; // its place before it has come
    const open = () => openViewer(image.src, 'Screenshot');
    const figure = el('figure.shot', el('button.shot-button', {type: 'button', 'aria-label': 'Zoom the screenshot', onclick: open}, image),
        el('figcaption.faint', sizeOf(image, width, height), ' · ', bytes(file.size)));
    figure.classList.toggle('is-wide', width > height);
    image.addEventListener('load', () => {
        image.style.aspectRatio = '';
        figure.classList.toggle('is-wide', image.naturalWidth > image.naturalHeight);
        figure.dispatchEvent(new Event('measured', {bubbles: true}));
        figure.querySelector('.shot-size').textContent = `${image.naturalWidth} × ${image.naturalHeight}`;
    });
    figure.zoom = open;
    image.addEventListener('error', () => {
        figure.replaceChildren(el('p.problem', 'The screenshot can’t be shown.'), download(file));
        figure.classList.add('is-wide', 'is-missing'); // its words need no column of their own
        figure.zoom = () => false;
        figure.dispatchEvent(new Event('measured', {bubbles: true}));
    });
    return figure;
}

function sizeOf(image, width, height) {
    return el('span.shot-size', width && height ? `${width} × ${height}` : '');
}

export function fileList(files) {
    return el('ul.files', files.map((file) => el('li.file', preview(file),
        el('.file-text', el('.cut', quoted(visible(file.name, 200) || 'Without a name')), el('.faint', bytes(file.size))), download(file))));
}

function preview(file) {
    if (!isRaster(file) || file.size > largestPreview)
        return el('span.file-kind', icon('clip'));
    const source = fileAddress(file);
    return el('button.file-picture', {type: 'button', 'aria-label': 'Show the picture', onclick: () => openViewer(source, visible(file.name, 100))},
        el('img', {src: source, alt: '', loading: 'lazy', decoding: 'async'}));
}

function download(file) {
    return el('a.button.small', {href: fileAddress(file), download: visible(file.name, 120) || 'file', title: 'Download', 'aria-label': `Download ${visible(file.name, 120)}`}, icon('download'),
        el('span', 'Download'));
}
